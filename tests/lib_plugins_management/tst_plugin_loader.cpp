#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <lib_plugins_management/d_abstract_plugin.h>
#include <lib_plugins_management/host/d_plugin_loader.h>

/// Plugin files good and bad; each bad one is a real file, and is refused with its name, the cause and the mend.
class TstPluginLoader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void goodPluginIsLoadedWithItsCommands();
    void relativePathIsLoadedToo();
    void fileLoadedTwiceIsOneRoot();
    void builtFileThatIsBadIsRefused_data();
    void builtFileThatIsBadIsRefused();
    void missingFileIsRefused();
    void folderInsteadOfAFileIsRefused();
    void textFileIsRefused();
    void emptyFileIsRefused();
    void truncatedLibraryIsRefused_data();
    void truncatedLibraryIsRefused();
    void pluginForAnotherQtIsRefused_data();
    void pluginForAnotherQtIsRefused();
    void unreadableFileIsRefused();
    void refusedFileIsRefusedAgain();
    void fileThatOthersMayWriteToIsRefused();
    void folderThatOthersMayWriteToIsRefused();
    void folderOfAWholeLoadIsRefusedOnce();
    void fileOfAnotherUserIsRefused();
    void linkIntoAFolderThatOthersMayWriteToIsRefused();
    void fileOfTheOwnersOwnGroupIsLoaded();
    void missingFolderIsRefused();
    void folderWithoutLibrariesIsRefused();
    void badFilesDoNotKeepTheOthersFromLoading();
    void filesAreLoadedInTheOrderOfTheirNames();

private:
    QString copyTo(const QString& name, const QString& plugin = QStringLiteral("good_plugin"));
    void overwrite(const QString& file, const QByteArray& content);
    void expectRefusal(const QString& file, const QString& cause);

    std::unique_ptr<QTemporaryDir> m_folder;
    DPluginLoader m_loader;
};

namespace {

QString built(const QString& plugin)
{
    return QStringLiteral(TEST_PLUGIN_FOLDER "/") + plugin + QStringLiteral(".so");
}

QByteArray contentOf(const QString& file)
{
    QFile opened(file);
    return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray();
}

} // namespace

void TstPluginLoader::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    m_loader = DPluginLoader();
}

QString TstPluginLoader::copyTo(const QString& name, const QString& plugin)
{
    const QString file = m_folder->filePath(name);
    return QFile::copy(built(plugin), file) ? file : QString();
}

void TstPluginLoader::overwrite(const QString& file, const QByteArray& content)
{
    QFile opened(file);
    QVERIFY(opened.open(QIODevice::WriteOnly));
    QCOMPARE(opened.write(content), qint64(content.size()));
}

void TstPluginLoader::expectRefusal(const QString& file, const QString& cause)
{
    QVERIFY(m_loader.loadFile(file) == nullptr);
    QVERIFY(m_loader.roots().isEmpty());
    QCOMPARE(m_loader.refusals().size(), 1);
    const DPluginRefusal& refusal = m_loader.refusals().constFirst();
    QCOMPARE(refusal.file, file);
    QVERIFY2(refusal.cause.contains(cause), qPrintable(refusal.cause));
    QVERIFY(!refusal.mend.isEmpty());
    for (const QString& part : {refusal.file, refusal.cause, refusal.mend}) {
        QVERIFY2(refusal.message().contains(part), qPrintable(refusal.message()));
    }
}

void TstPluginLoader::goodPluginIsLoadedWithItsCommands()
{
    const DAbstractPlugin* root = m_loader.loadFile(built(QStringLiteral("good_plugin")));
    QVERIFY(root != nullptr);
    QCOMPARE(root->commandNames(), QStringList({QStringLiteral("idle")}));
    QCOMPARE(m_loader.roots().size(), 1);
    QVERIFY(m_loader.refusals().isEmpty());
}

void TstPluginLoader::relativePathIsLoadedToo()
{
    const QString file = QDir::current().relativeFilePath(built(QStringLiteral("good_plugin")));
    QVERIFY(QDir::isRelativePath(file));
    QVERIFY(m_loader.loadFile(file) != nullptr);
}

void TstPluginLoader::fileLoadedTwiceIsOneRoot()
{
    const DAbstractPlugin* root = m_loader.loadFile(built(QStringLiteral("good_plugin")));
    QCOMPARE(m_loader.loadFile(built(QStringLiteral("good_plugin"))), root);
    QCOMPARE(m_loader.roots().size(), 1);
    QCOMPARE(root->commandNames().size(), 1);
}

void TstPluginLoader::builtFileThatIsBadIsRefused_data()
{
    QTest::addColumn<QString>("cause");
    QTest::newRow("plain_library") << QStringLiteral("it is no Qt plugin");
    QTest::newRow("other_iid_plugin") << QStringLiteral("its interface id \"workplace.test.SomethingElse\"");
    QTest::newRow("other_object_plugin") << QStringLiteral("its object is not a plugin of this host");
    QTest::newRow("no_command_plugin") << QStringLiteral("it declares no command");
    QTest::newRow("throwing_constructor_plugin") << QStringLiteral("it failed while it was loaded (no licence file)");
    QTest::newRow("throwing_init_plugin") << QStringLiteral("it failed while it was loaded (half a table)");
    QTest::newRow("odd_throwing_plugin") << QStringLiteral("it failed while it was loaded");
    QTest::newRow("unresolved_plugin") << QStringLiteral("functionOfALibraryThatIsNotThere");
}

void TstPluginLoader::builtFileThatIsBadIsRefused()
{
    QFETCH(QString, cause);
    const QString file = built(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(QFile::exists(file));
    expectRefusal(file, cause);
}

void TstPluginLoader::missingFileIsRefused()
{
    expectRefusal(m_folder->filePath(QStringLiteral("nothing.so")), QStringLiteral("there is no such file"));
}

void TstPluginLoader::folderInsteadOfAFileIsRefused()
{
    expectRefusal(m_folder->path(), QStringLiteral("there is no such file"));
}

void TstPluginLoader::textFileIsRefused()
{
    const QString file = m_folder->filePath(QStringLiteral("text.so"));
    overwrite(file, QByteArrayLiteral("this is no library\n"));
    expectRefusal(file, QStringLiteral("it is no Qt plugin"));
}

void TstPluginLoader::emptyFileIsRefused()
{
    const QString file = m_folder->filePath(QStringLiteral("empty.so"));
    overwrite(file, QByteArray());
    expectRefusal(file, QStringLiteral("it is no Qt plugin"));
}

void TstPluginLoader::truncatedLibraryIsRefused_data()
{
    QTest::addColumn<int>("percent");
    QTest::newRow("the head only") << 1;
    QTest::newRow("half of it") << 50;
    QTest::newRow("the end is missing") << 99;
}

void TstPluginLoader::truncatedLibraryIsRefused()
{
    QFETCH(int, percent);
    const QByteArray whole = contentOf(built(QStringLiteral("good_plugin")));
    const QString file = m_folder->filePath(QStringLiteral("truncated.so"));
    overwrite(file, whole.left(int(whole.size() * qint64(percent) / 100)));
    expectRefusal(file, QStringLiteral("it "));
}

void TstPluginLoader::pluginForAnotherQtIsRefused_data()
{
    QTest::addColumn<int>("major");
    QTest::addColumn<int>("minor");
    QTest::addColumn<QString>("cause");
    QTest::newRow("newer minor version") << 5 << 99 << QStringLiteral("5.99");
    QTest::newRow("newer major version") << 6 << 2 << QStringLiteral("6.2");
}

void TstPluginLoader::pluginForAnotherQtIsRefused()
{
    QFETCH(int, major);
    QFETCH(int, minor);
    QFETCH(QString, cause);
    // "QTMETADATA !", the format's version, then Qt's major and minor version, a byte each.
    QByteArray content = contentOf(built(QStringLiteral("good_plugin")));
    const QByteArray mark = QByteArrayLiteral("QTMETADATA !");
    const int at = content.indexOf(mark);
    QVERIFY(at > 0);
    content[at + mark.size() + 1] = char(major);
    content[at + mark.size() + 2] = char(minor);
    const QString file = m_folder->filePath(QStringLiteral("other_qt.so"));
    overwrite(file, content);
    expectRefusal(file, cause);
}

void TstPluginLoader::unreadableFileIsRefused()
{
    if (geteuid() == 0) {
        QSKIP("root may read every file");
    }
    const QString file = copyTo(QStringLiteral("unreadable.so"));
    QVERIFY(QFile::setPermissions(file, QFile::WriteOwner));
    expectRefusal(file, QStringLiteral("it may not be read"));
}

void TstPluginLoader::refusedFileIsRefusedAgain()
{
    for (const char* plugin : {"throwing_init_plugin", "no_command_plugin", "throwing_constructor_plugin"}) {
        const QString file = built(QString::fromLatin1(plugin));
        QVERIFY(m_loader.loadFile(file) == nullptr);
        QVERIFY2(m_loader.loadFile(file) == nullptr, plugin);
    }
    QCOMPARE(m_loader.refusals().size(), 6);
}

void TstPluginLoader::fileThatOthersMayWriteToIsRefused()
{
    const QString file = copyTo(QStringLiteral("open.so"));
    QCOMPARE(::chmod(QFile::encodeName(file).constData(), 0757), 0);
    expectRefusal(file, QStringLiteral("every user may write to ") + file);
}

void TstPluginLoader::folderThatOthersMayWriteToIsRefused()
{
    const QString file = copyTo(QStringLiteral("good.so"));
    QCOMPARE(::chmod(QFile::encodeName(m_folder->path()).constData(), 01777), 0);
    expectRefusal(file, QStringLiteral("every user may write to ") + m_folder->path());
}

void TstPluginLoader::folderOfAWholeLoadIsRefusedOnce()
{
    QVERIFY(!copyTo(QStringLiteral("a.so")).isEmpty());
    QVERIFY(!copyTo(QStringLiteral("b.so")).isEmpty());
    QCOMPARE(::chmod(QFile::encodeName(m_folder->path()).constData(), 0777), 0);
    m_loader.loadFolder(m_folder->path());
    QVERIFY(m_loader.roots().isEmpty());
    QCOMPARE(m_loader.refusals().size(), 1);
    QCOMPARE(m_loader.refusals().constFirst().file, m_folder->path());
}

void TstPluginLoader::fileOfAnotherUserIsRefused()
{
    if (::geteuid() != 0) {
        QSKIP("only root can give a file away");
    }
    const QString file = copyTo(QStringLiteral("stranger.so"));
    constexpr uid_t c_daemon = 1;
    QCOMPARE(::chown(QFile::encodeName(file).constData(), c_daemon, gid_t(-1)), 0);
    expectRefusal(file, QStringLiteral("%1 belongs to daemon").arg(file));
}

void TstPluginLoader::linkIntoAFolderThatOthersMayWriteToIsRefused()
{
    const QTemporaryDir open;
    const QString real = open.filePath(QStringLiteral("real.so"));
    QVERIFY(QFile::copy(built(QStringLiteral("good_plugin")), real));
    const QString link = m_folder->filePath(QStringLiteral("link.so"));
    QVERIFY(QFile::link(real, link));
    QCOMPARE(::chmod(QFile::encodeName(open.path()).constData(), 0777), 0);
    expectRefusal(link, QStringLiteral("every user may write to ") + open.path());
}

void TstPluginLoader::fileOfTheOwnersOwnGroupIsLoaded()
{
    // As it is built with a umask of 002.
    const struct passwd* user = ::getpwuid(::geteuid());
    const struct group* group = user == nullptr ? nullptr : ::getgrgid(user->pw_gid);
    if (group == nullptr || qstrcmp(group->gr_name, user->pw_name) != 0) {
        QSKIP("this user has no group of its own");
    }
    const QString file = copyTo(QStringLiteral("group.so"));
    QCOMPARE(::chown(QFile::encodeName(file).constData(), uid_t(-1), user->pw_gid), 0);
    QCOMPARE(::chmod(QFile::encodeName(file).constData(), 0775), 0);
    QCOMPARE(::chmod(QFile::encodeName(m_folder->path()).constData(), 0775), 0);
    QVERIFY(m_loader.loadFile(file) != nullptr);
}

void TstPluginLoader::missingFolderIsRefused()
{
    m_loader.loadFolder(m_folder->filePath(QStringLiteral("nowhere")));
    QCOMPARE(m_loader.refusals().size(), 1);
    QVERIFY(m_loader.refusals().constFirst().message().contains(QStringLiteral("there is no such folder")));
    QVERIFY(m_loader.refusals().constFirst().message().contains(QStringLiteral("nowhere")));
}

void TstPluginLoader::folderWithoutLibrariesIsRefused()
{
    overwrite(m_folder->filePath(QStringLiteral("readme.txt")), QByteArrayLiteral("no plugin"));
    m_loader.loadFolder(m_folder->path());
    QCOMPARE(m_loader.refusals().size(), 1);
    QVERIFY(m_loader.refusals().constFirst().cause.contains(QStringLiteral("it holds no library")));
}

void TstPluginLoader::badFilesDoNotKeepTheOthersFromLoading()
{
    QVERIFY(!copyTo(QStringLiteral("a_good.so")).isEmpty());
    QStringList bad;
    for (const QString& plugin : {QStringLiteral("no_command_plugin"), QStringLiteral("odd_throwing_plugin"),
                                  QStringLiteral("other_iid_plugin"), QStringLiteral("other_object_plugin"),
                                  QStringLiteral("plain_library"), QStringLiteral("throwing_constructor_plugin"),
                                  QStringLiteral("throwing_init_plugin"), QStringLiteral("unresolved_plugin")}) {
        bad.append(copyTo(QStringLiteral("b_") + plugin + QStringLiteral(".so"), plugin));
    }
    bad.append(m_folder->filePath(QStringLiteral("c_text.so")));
    overwrite(bad.last(), QByteArrayLiteral("this is no library\n"));
    QVERIFY(!copyTo(QStringLiteral("z_good.so")).isEmpty());

    m_loader.loadFolder(m_folder->path());
    QCOMPARE(m_loader.roots().size(), 2);
    QStringList refused;
    for (const DPluginRefusal& refusal : m_loader.refusals()) {
        refused.append(refusal.file);
    }
    QCOMPARE(refused, bad);
}

void TstPluginLoader::filesAreLoadedInTheOrderOfTheirNames()
{
    overwrite(m_folder->filePath(QStringLiteral("b.so")), QByteArrayLiteral("b"));
    overwrite(m_folder->filePath(QStringLiteral("a.so")), QByteArrayLiteral("a"));
    m_loader.loadFolder(m_folder->path());
    QCOMPARE(m_loader.refusals().size(), 2);
    QVERIFY(m_loader.refusals().constFirst().file.endsWith(QStringLiteral("/a.so")));
}

QTEST_GUILESS_MAIN(TstPluginLoader)
#include "tst_plugin_loader.moc"
