#include "plugin_rights.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <optional>

#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr uid_t c_root = 0;

std::optional<PluginRights::Entry> entryOf(const QString& path)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0) {
        return {};
    }
    return PluginRights::Entry{status.st_uid, status.st_gid, status.st_mode};
}

// Who has no name has a number.

QString userName(uid_t user)
{
    const struct passwd* entry = ::getpwuid(user);
    return entry != nullptr ? QString::fromLocal8Bit(entry->pw_name) : QString::number(user);
}

QString groupName(gid_t group)
{
    const struct group* entry = ::getgrgid(group);
    return entry != nullptr ? QString::fromLocal8Bit(entry->gr_name) : QString::number(group);
}

} // namespace

PluginRights::PluginRights() : m_user(::geteuid()), m_programOwner(m_user)
{
    const std::optional<Entry> program = entryOf(QStringLiteral("/proc/self/exe"));
    if (program) {
        m_programOwner = program->owner;
    }
}

PluginRights::Problem PluginRights::problemOf(const QString& path) const
{
    const std::optional<Entry> entry = entryOf(path);
    return entry ? problemOf(path, *entry) : Problem();
}

PluginRights::Problem PluginRights::problemOfFileAndFolder(const QString& file) const
{
    const QFileInfo named(file);
    const QFileInfo real(named.canonicalFilePath());
    QStringList paths{real.filePath(), named.absolutePath(), real.absolutePath()};
    paths.removeDuplicates();
    for (const QString& path : qAsConst(paths)) {
        Problem problem = problemOf(path);
        if (!problem.isNone()) {
            return problem;
        }
    }
    return {};
}

PluginRights::Problem PluginRights::problemOf(const QString& path, const Entry& entry) const
{
    if (!isTrusted(entry.owner)) {
        return {QCoreApplication::translate("PluginLoader",
                                            "%1 belongs to %2, who is neither root nor this user nor the owner of this "
                                            "program")
                    .arg(path, userName(entry.owner)),
                QCoreApplication::translate("PluginLoader",
                                            "when you trust it, make it yours: sudo chown $USER \"%1\"; otherwise take "
                                            "another one")
                    .arg(path)};
    }
    if ((entry.mode & S_IWOTH) != 0) {
        return {QCoreApplication::translate("PluginLoader", "every user may write to %1").arg(path),
                QCoreApplication::translate("PluginLoader",
                                            "see that nobody has changed it, then take that right away: chmod o-w "
                                            "\"%1\"")
                    .arg(path)};
    }
    if ((entry.mode & S_IWGRP) != 0 && !isOwnersAlone(entry.group, entry.owner)) {
        return {QCoreApplication::translate("PluginLoader", "everybody in the group %2 may write to %1")
                    .arg(path, groupName(entry.group)),
                QCoreApplication::translate(
                    "PluginLoader", "see that nobody has changed it, then take that right away: chmod g-w \"%1\"")
                    .arg(path)};
    }
    return {};
}

bool PluginRights::isOwnersAlone(gid_t group, uid_t owner)
{
    const struct passwd* user = ::getpwuid(owner);
    const struct group* entry = ::getgrgid(group);
    if (user == nullptr || entry == nullptr) {
        // Unknown to the system, as in a container: nobody can have been added to it.
        return user == nullptr && entry == nullptr && group == owner;
    }
    // By the name, too: a common group ("users") may be many users' first one without listing any.
    const bool isNamedAfterTheUser = user->pw_gid == group && qstrcmp(user->pw_name, entry->gr_name) == 0;
    bool hasOthers = false;
    for (char* const* member = entry->gr_mem; *member != nullptr; ++member) {
        hasOthers = hasOthers || qstrcmp(*member, user->pw_name) != 0;
    }
    return isNamedAfterTheUser && !hasOthers;
}

bool PluginRights::isTrusted(uid_t owner) const
{
    return owner == c_root || owner == m_user || owner == m_programOwner;
}
