#pragma once

#include <QString>

#include <sys/types.h>

/// Who could have changed a plugin's file, or put another one in its place: what is loaded runs with all rights of this
/// process. Trusted are root, this user, and the owner of the program itself, who could change that, too.
class PluginRights
{
public:
    /// Of a file or folder.
    struct Entry
    {
        uid_t owner = 0;
        gid_t group = 0;
        mode_t mode = 0;
    };
    /// What must not be, and how to mend it; empty: nothing.
    struct Problem
    {
        QString cause;
        QString mend;

        bool isNone() const { return cause.isEmpty(); }
    };

    /// The user of this process, and the owner of the running program.
    PluginRights();
    PluginRights(uid_t user, uid_t programOwner) : m_user(user), m_programOwner(programOwner) {}

    /// Of the file or folder as it is now; symbolic links are followed. One that is not there has no problem.
    Problem problemOf(const QString& path) const;
    /// The file, its folder, and where the two really are when they are reached by symbolic links.
    Problem problemOfFileAndFolder(const QString& file) const;
    /// Of what stands at that path.
    Problem problemOf(const QString& path, const Entry& entry) const;

    /// Nobody but the owner is in the group, as Debian gives each user one (and a umask of 002 with it).
    static bool isOwnersAlone(gid_t group, uid_t owner);

private:
    bool isTrusted(uid_t owner) const;

    uid_t m_user;
    uid_t m_programOwner;
};
