#include "port_rights.h"

#include <QCoreApplication>
#include <QFile>
#include <QVector>

#include <algorithm>

#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr gid_t c_rootGroup = 0;
constexpr mode_t c_groupMayUse = S_IRGRP | S_IWGRP;

/// A group that has no name has its number.
QString groupName(gid_t group)
{
    const struct group* entry = ::getgrgid(group);
    return entry != nullptr ? QString::fromLocal8Bit(entry->gr_name) : QString::number(group);
}

/// Whether the system's user data give the group to this user, whatever this process has.
bool isGivenToTheUser(gid_t group)
{
    const struct passwd* user = ::getpwuid(::geteuid());
    if (user == nullptr) {
        return false;
    }
    int count = 0;
    ::getgrouplist(user->pw_name, user->pw_gid, nullptr, &count); // how many there are
    QVector<gid_t> groups(std::max(count, 1));
    count = groups.size();
    return ::getgrouplist(user->pw_name, user->pw_gid, groups.data(), &count) >= 0 && groups.contains(group);
}

bool isGroupOfThisProcess(gid_t group)
{
    QVector<gid_t> groups(std::max(::getgroups(0, nullptr), 1));
    const int count = ::getgroups(groups.size(), groups.data());
    groups.resize(std::max(count, 0));
    return group == ::getegid() || groups.contains(group);
}

} // namespace

QString port_rights::notPermitted(const QString& name, const QString& location)
{
    struct stat status = {};
    const bool isKnown = ::stat(QFile::encodeName(location).constData(), &status) == 0;
    if (!isKnown || status.st_gid == c_rootGroup || (status.st_mode & c_groupMayUse) != c_groupMayUse ||
        isGroupOfThisProcess(status.st_gid)) {
        // No group would help, and what is done here lasts until the adapter is plugged in again.
        return QCoreApplication::translate(
                   "SerialDriver",
                   "The port %1 may not be opened by this user, nor by a group that the user could join: "
                   "run \"sudo chown $USER %2\".")
            .arg(name, location);
    }
    const QString group = groupName(status.st_gid);
    if (isGivenToTheUser(status.st_gid)) {
        return QCoreApplication::translate(
                   "SerialDriver",
                   "The port %1 may not be opened yet: this user has been given the group %2 after logging "
                   "in, so log out and in again.")
            .arg(name, group);
    }
    return QCoreApplication::translate(
               "SerialDriver",
               "The port %1 may not be opened by this user: run \"sudo usermod -aG %2 $USER\" and log in "
               "again.")
        .arg(name, group);
}
