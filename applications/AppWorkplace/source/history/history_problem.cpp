#include "history_problem.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSqlError>

namespace {

// Of SQLite; the upper bits of a code only say more of the same.
enum Code {
    Perm = 3,
    Busy = 5,
    Locked = 6,
    ReadOnly = 8,
    InputOutput = 10,
    Corrupt = 11,
    Full = 13,
    CantOpen = 14,
    NotADatabase = 26
};
constexpr int c_codeMask = 0xff;

QString folderOf(const QString& file)
{
    return QFileInfo(file).absolutePath();
}

Problem problem(const QString& what, const QString& cause, const QString& mend)
{
    return {Problem::Kind::SetUp, QStringLiteral("history"), what, cause, mend};
}

} // namespace

Problem historyProblem(const QString& what, const QString& file, const QSqlError& error)
{
    const QString said = error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
    switch (error.nativeErrorCode().toInt() & c_codeMask) {
    case Busy:
    case Locked:
        return problem(what,
                       QCoreApplication::translate("History", "another program keeps %1 locked (%2)").arg(file, said),
                       QCoreApplication::translate("History", "close the program that holds it, then start again"));
    case Perm:
    case ReadOnly:
        return problem(what, QCoreApplication::translate("History", "%1 cannot be written (%2)").arg(file, said),
                       QCoreApplication::translate(
                           "History",
                           "give this user the right to write the file and its folder %1, or name another folder "
                           "with --data")
                           .arg(folderOf(file)));
    case CantOpen:
        return problem(
            what, QCoreApplication::translate("History", "%1 cannot be opened (%2)").arg(file, said),
            QCoreApplication::translate(
                "History", "give this user the right to write in the folder %1, or name another folder with --data")
                .arg(folderOf(file)));
    case Full:
        return problem(
            what,
            QCoreApplication::translate("History", "there is no room for it in %1 (%2)").arg(folderOf(file), said),
            QCoreApplication::translate("History", "make room on that disk, then start again"));
    case InputOutput:
        return problem(what, QCoreApplication::translate("History", "the disk refuses %1 (%2)").arg(file, said),
                       QCoreApplication::translate(
                           "History", "check the room and the health of the disk that holds %1, then start again")
                           .arg(folderOf(file)));
    case Corrupt:
    case NotADatabase:
        return historyRefusal(file, said, damageMend(file));
    default:
        return problem(what, QCoreApplication::translate("History", "%1: %2").arg(file, said),
                       QCoreApplication::translate("History", "mend the cause, then start again"));
    }
}

Problem historyRefusal(const QString& file, const QString& cause, const QString& mend)
{
    return problem(
        QCoreApplication::translate("History", "the history %1 is not used, and was left as it is").arg(file), cause,
        mend);
}

QString damageMend(const QString& file)
{
    return QCoreApplication::translate(
               "History",
               "put a backup in its place, or move %1 and the files beside it that begin with its name elsewhere; "
               "docs/history.md says what can be read from them")
        .arg(file);
}
