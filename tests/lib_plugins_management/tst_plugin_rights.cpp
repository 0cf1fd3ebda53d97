#include <QTest>

#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>

#include "plugin_rights.h"

/// Whose files and folders are loaded from. What is on the disk is tried in tst_plugin_loader.
class TestPluginRights : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whoIsTrusted_data();
    void whoIsTrusted();
    void whoMayWrite_data();
    void whoMayWrite();
    void aProblemNamesTheThingAndTheMend();
    void aGroupOfSeveralIsNoUsersOwn();
    void aUserAndAGroupWithoutANameAreOneByTheirNumber();
};

namespace {

// Of Debian's base: there on every system.
constexpr uid_t c_root = 0;
constexpr uid_t c_daemon = 1;
constexpr gid_t c_daemonsGroup = 1; // "daemon": the user's own, and nobody else's
constexpr gid_t c_users = 100;      // "users": a group of many
// Of nobody.
constexpr uid_t c_user = 54321;
constexpr uid_t c_owner = 54322;
constexpr uid_t c_stranger = 54323;

const QString c_path = QStringLiteral("/opt/plugins/plugin.so");

} // namespace

void TestPluginRights::whoIsTrusted_data()
{
    QTest::addColumn<uint>("owner");
    QTest::addColumn<bool>("trusted");
    QTest::newRow("root") << uint(c_root) << true;
    QTest::newRow("this user") << uint(c_user) << true;
    QTest::newRow("the owner of the program") << uint(c_owner) << true;
    QTest::newRow("somebody else") << uint(c_stranger) << false;
}

void TestPluginRights::whoIsTrusted()
{
    QFETCH(uint, owner);
    QFETCH(bool, trusted);
    QCOMPARE(PluginRights(c_user, c_owner).problemOf(c_path, {owner, c_user, 0644}).isNone(), trusted);
}

void TestPluginRights::whoMayWrite_data()
{
    QTest::addColumn<uint>("owner");
    QTest::addColumn<uint>("group");
    QTest::addColumn<uint>("mode");
    QTest::addColumn<bool>("good");
    QTest::newRow("the owner") << c_user << c_users << 0755U << true;
    QTest::newRow("nobody") << c_user << c_users << 0444U << true;
    QTest::newRow("others") << c_user << c_user << 0757U << false;
    QTest::newRow("others, with the sticky bit") << c_user << c_user << 01777U << false;
    QTest::newRow("the owner's own group (umask 002)") << c_daemon << c_daemonsGroup << 0775U << true;
    QTest::newRow("root's group") << c_root << 0U << 0775U << true;
    QTest::newRow("a group of many") << c_daemon << c_users << 0775U << false;
    QTest::newRow("another user's group") << c_root << c_daemonsGroup << 0775U << false;
}

void TestPluginRights::whoMayWrite()
{
    QFETCH(uint, owner);
    QFETCH(uint, group);
    QFETCH(uint, mode);
    QFETCH(bool, good);
    QCOMPARE(PluginRights(owner, owner).problemOf(c_path, {owner, group, mode}).isNone(), good);
}

void TestPluginRights::aProblemNamesTheThingAndTheMend()
{
    const PluginRights rights(c_user, c_owner);
    const PluginRights::Problem others = rights.problemOf(c_path, {c_user, c_user, 0777});
    QCOMPARE(others.cause, QStringLiteral("every user may write to ") + c_path);
    QVERIFY2(others.mend.contains(QStringLiteral("chmod o-w \"%1\"").arg(c_path)), qPrintable(others.mend));
    const PluginRights::Problem group = rights.problemOf(c_path, {c_user, c_users, 0775});
    QCOMPARE(group.cause, QStringLiteral("everybody in the group users may write to ") + c_path);
    QVERIFY2(group.mend.contains(QStringLiteral("chmod g-w \"%1\"").arg(c_path)), qPrintable(group.mend));
    const PluginRights::Problem owner = rights.problemOf(c_path, {c_daemon, c_daemonsGroup, 0755});
    QVERIFY2(owner.cause.startsWith(c_path + QStringLiteral(" belongs to daemon,")), qPrintable(owner.cause));
    QVERIFY2(owner.mend.contains(QStringLiteral("chown $USER \"%1\"").arg(c_path)), qPrintable(owner.mend));
}

void TestPluginRights::aGroupOfSeveralIsNoUsersOwn()
{
    QVERIFY(PluginRights::isOwnersAlone(c_daemonsGroup, c_daemon));
    QVERIFY(!PluginRights::isOwnersAlone(c_users, c_daemon));
    QVERIFY(!PluginRights::isOwnersAlone(c_daemonsGroup, c_root));
}

void TestPluginRights::aUserAndAGroupWithoutANameAreOneByTheirNumber()
{
    if (::getpwuid(c_user) != nullptr || ::getgrgid(c_user) != nullptr) {
        QSKIP("this system has a user or a group of that number");
    }
    QVERIFY(PluginRights::isOwnersAlone(c_user, c_user));
    QVERIFY(!PluginRights::isOwnersAlone(c_owner, c_user));
}

QTEST_GUILESS_MAIN(TestPluginRights)
#include "tst_plugin_rights.moc"
