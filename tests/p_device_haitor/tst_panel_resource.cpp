#include <QFile>
#include <QPluginLoader>
#include <QResource>
#include <QTest>
#include <QtEndian>

#include <dlfcn.h>

namespace {

const QString c_module = QStringLiteral(MODULE_FILE);
const QString c_panel = QStringLiteral(":/{b3b68306-268a-4bce-b400-9f7c133e4cef}/maintenance_panel.qml");

struct Bundle
{
    int version;
    const unsigned char* tree;
};

/// The bundles that are registered while this program runs.
QList<Bundle>& bundles()
{
    static QList<Bundle> list;
    return list;
}

using ResourceFunction = bool (*)(int, const unsigned char*, const unsigned char*, const unsigned char*);

ResourceFunction qtsOwn(const char* mangledName)
{
    return reinterpret_cast<ResourceFunction>(dlsym(RTLD_NEXT, mangledName));
}

} // namespace

// The program's own functions of these names go before those of Qt, for the library that is loaded: so they see what it
// hands over, and pass it on.
Q_DECL_EXPORT bool qRegisterResourceData(int version, const unsigned char* tree, const unsigned char* name,
                                         const unsigned char* data);
Q_DECL_EXPORT bool qUnregisterResourceData(int version, const unsigned char* tree, const unsigned char* name,
                                           const unsigned char* data);

bool qRegisterResourceData(int version, const unsigned char* tree, const unsigned char* name, const unsigned char* data)
{
    bundles().append({version, tree});
    return qtsOwn("_Z21qRegisterResourceDataiPKhS0_S0_")(version, tree, name, data);
}

bool qUnregisterResourceData(int version, const unsigned char* tree, const unsigned char* name,
                             const unsigned char* data)
{
    for (int i = bundles().size() - 1; i >= 0; --i) {
        if (bundles().at(i).tree == tree) {
            bundles().removeAt(i);
        }
    }
    return qtsOwn("_Z23qUnregisterResourceDataiPKhS0_S0_")(version, tree, name, data);
}

/// The panel's document in the library that the host loads.
class TestPanelResource : public QObject
{
    Q_OBJECT

private:
    QPluginLoader m_loader{c_module};

    /// As it lies in the library.
    static QByteArray stored()
    {
        const QResource resource(c_panel);
        return QByteArray(reinterpret_cast<const char*>(resource.data()), int(resource.size()));
    }
    static QByteArray text()
    {
        QFile file(c_panel);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(!QFile::exists(c_panel));
        QVERIFY(bundles().isEmpty());
        m_loader.setLoadHints({}); // by default Qt keeps a plugin that was loaded once
        QVERIFY2(m_loader.load(), qPrintable(m_loader.errorString()));
    }

    void isThereOnceTheLibraryIsLoaded() { QVERIFY(QFile::exists(c_panel)); }

    void isOneBundleOfFormatVersionThree()
    {
        QCOMPARE(bundles().size(), 1);
        QCOMPARE(bundles().constFirst().version, 3);
    }

    void isCompressedWithZlib()
    {
        QCOMPARE(QResource(c_panel).compressionAlgorithm(), QResource::ZlibCompression);
        const QByteArray bytes = stored();
        QCOMPARE(qFromBigEndian<quint32>(bytes.constData()), quint32(text().size()));
        QCOMPARE(bytes.at(4), '\x78'); // zlib's header
        QCOMPARE(qUncompress(bytes), text());
    }

    void liesInTheFileAsItIsRead()
    {
        QFile file(c_module);
        QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.errorString()));
        QVERIFY(file.readAll().contains(stored()));
    }

    void isAsciiWithCarriageReturns()
    {
        const QByteArray document = text();
        QVERIFY(document.endsWith("\r\n"));
        QCOMPARE(document.count('\n'), document.count("\r\n"));
        QCOMPARE(document.count('\r'), document.count("\r\n"));
        for (const char character : document) {
            QVERIFY(character == '\r' || character == '\n' || (character >= ' ' && character <= '~'));
        }
    }

    void importsComeInTheHostsOrder()
    {
        QList<QByteArray> imports;
        const QList<QByteArray> lines = text().split('\n');
        for (const QByteArray& line : lines) {
            if (line.startsWith("import ")) {
                imports.append(line.mid(7).trimmed());
            }
        }
        QCOMPARE(imports, QList<QByteArray>({"QtQuick 2.15", "QtQuick.Controls 2.15", "PlgLibDeviceHaitor 1.0",
                                             "\"../../../applications/AppWorkplace/gui/panels\"",
                                             "\"../../../applications/AppWorkplace/gui/widgets\""}));
    }

    void placeholdersStandInItAsTheyAre()
    {
        for (const char* placeholder : {"\"{OBJECT_NAME}\"", "\"{OBJECT_ID}\"", "\"{OBJECT_REFERENCE}\""}) {
            QCOMPARE(text().count(placeholder), 1);
        }
    }

    void eachTextHasItsDefaultBesideItsId_data()
    {
        QTest::addColumn<QByteArray>("id");
        QTest::addColumn<QByteArray>("defaultText");
        QTest::newRow("title") << QByteArray("Controller_commands") << QByteArray("Controller commands");
        QTest::newRow("program") << QByteArray("Set_program") << QByteArray("Set program");
        QTest::newRow("apply") << QByteArray("Apply") << QByteArray("Apply");
        QTest::newRow("lock") << QByteArray("Set_lock") << QByteArray("Set lock");
        QTest::newRow("to lock") << QByteArray("Lock") << QByteArray("Lock");
        QTest::newRow("to unlock") << QByteArray("Unlock") << QByteArray("Unlock");
    }
    void eachTextHasItsDefaultBesideItsId()
    {
        QFETCH(QByteArray, id);
        QFETCH(QByteArray, defaultText);
        const QList<QByteArray> lines = text().split('\n');
        for (int i = 1; i < lines.size(); ++i) {
            if (lines.at(i).contains("qsTrId(\"maintenance_panel_" + id + "\")")) {
                QCOMPARE(lines.at(i - 1).trimmed(), "//% \"" + defaultText + '"');
                return;
            }
        }
        QFAIL("the document has no text of that id");
    }

    void isGoneWithTheLibrary()
    {
        QVERIFY2(m_loader.unload(), qPrintable(m_loader.errorString()));
        QVERIFY(!QFile::exists(c_panel));
        QVERIFY(bundles().isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestPanelResource)
#include "tst_panel_resource.moc"
