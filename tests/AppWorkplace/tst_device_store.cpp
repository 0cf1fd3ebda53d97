#include <QDir>
#include <QFile>
#include <QJsonObject>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include "services/device_store.h"

#include <unistd.h>

class TestDeviceStore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsWhatItHasStored();
    void isEmptyAtFirst();
    void keepsNothingWithoutAFolder();
    void staysInItsFolder_data();
    void staysInItsFolder();
    void keepsDevicesApart();
    void leavesADamagedFileAlone_data();
    void leavesADamagedFileAlone();
    void refusesAHugeFileByItsSize();
    void saysWhyItCannotStore();
};

void TestDeviceStore::findsWhatItHasStored()
{
    const QTemporaryDir folder;
    QString cause;
    const DeviceStore written(folder.path(), QStringLiteral("2210"));
    written.configuration()->insert(QStringLiteral("count"), 3);
    QVERIFY2(written.save(&cause), qPrintable(cause));
    DeviceStore read(folder.path(), QStringLiteral("2210"));
    QVERIFY2(read.load(&cause), qPrintable(cause));
    QCOMPARE(*read.configuration(), (QJsonObject{{QStringLiteral("count"), 3}}));
}

void TestDeviceStore::isEmptyAtFirst()
{
    const QTemporaryDir folder;
    DeviceStore store(folder.path(), QStringLiteral("2210"));
    QString cause;
    QVERIFY(store.load(&cause));
    QVERIFY(store.configuration()->isEmpty());
}

void TestDeviceStore::keepsNothingWithoutAFolder()
{
    DeviceStore store(QString(), QStringLiteral("2210"));
    QString cause;
    QVERIFY(store.save(&cause));
    QVERIFY(store.load(&cause));
    QCOMPARE(store.file(), QString());
}

void TestDeviceStore::staysInItsFolder_data()
{
    QTest::addColumn<QString>("device");
    QTest::newRow("up") << "../../etc/x";
    QTest::newRow("absolute") << "/etc/x";
    QTest::newRow("dots") << "..";
    QTest::newRow("zero") << QString(QChar(0));
    QTest::newRow("line end") << "a\nb";
    QTest::newRow("letters") << "Ä";
}

void TestDeviceStore::staysInItsFolder()
{
    QFETCH(QString, device);
    const QTemporaryDir folder;
    QString cause;
    QVERIFY2(DeviceStore(folder.path(), device).save(&cause), qPrintable(cause));
    const QStringList files = QDir(folder.filePath(QStringLiteral("devices"))).entryList(QDir::Files | QDir::Hidden);
    QCOMPARE(files.size(), 1);
    QVERIFY2(!files.first().startsWith(QLatin1Char('.')), qPrintable(files.first()));
}

void TestDeviceStore::keepsDevicesApart()
{
    const QTemporaryDir folder;
    QVERIFY(DeviceStore(folder.path(), QStringLiteral("a/b")).file() !=
            DeviceStore(folder.path(), QStringLiteral("a%2Fb")).file());
}

void TestDeviceStore::leavesADamagedFileAlone_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("cut off") << QByteArray("{\"count\": ");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("an array") << QByteArray("[]");
}

void TestDeviceStore::leavesADamagedFileAlone()
{
    QFETCH(QByteArray, text);
    const QTemporaryDir folder;
    DeviceStore store(folder.path(), QStringLiteral("2210"));
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("devices")));
    QFile file(store.file());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
    file.close();
    QString cause;
    QVERIFY(!store.load(&cause));
    QVERIFY(!cause.isEmpty());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), text);
}

void TestDeviceStore::refusesAHugeFileByItsSize()
{
    const QTemporaryDir folder;
    DeviceStore store(folder.path(), QStringLiteral("2210"));
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("devices")));
    QFile file(store.file());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("{}");
    QVERIFY(file.resize(qint64{2} * 1024 * 1024 * 1024)); // without a block on the disk
    file.close();
    QString cause;
    QVERIFY(!store.load(&cause));
    QVERIFY2(cause.contains(QString::number(JsonObjectFile::c_maxBytes)), qPrintable(cause));
}

// A file in the place of the folder stops root as well.
void TestDeviceStore::saysWhyItCannotStore()
{
    const QTemporaryDir folder;
    QFile obstacle(folder.filePath(QStringLiteral("devices")));
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    QString cause;
    QVERIFY(!DeviceStore(folder.path(), QStringLiteral("2210")).save(&cause));
    QVERIFY(!cause.isEmpty());
}

QTEST_GUILESS_MAIN(TestDeviceStore)
#include "tst_device_store.moc"
