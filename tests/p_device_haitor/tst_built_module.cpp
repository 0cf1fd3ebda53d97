#include <QCborMap>
#include <QCborValue>
#include <QFile>
#include <QJsonObject>
#include <QLibrary>
#include <QPluginLoader>
#include <QPointer>
#include <QTest>

#include <elf.h>

#include <cstring>

#include <lib_plugins_management/d_abstract_plugin.h>

namespace {

const QString c_module = QStringLiteral(MODULE_FILE);
const QByteArray c_magic = QByteArrayLiteral("QTMETADATA !");

// Names that the module shows to others, in alphabetical order.
QStringList exportedNames(const QByteArray& file)
{
    const char* base = file.constData();
    Elf64_Ehdr header;
    std::memcpy(&header, base, sizeof(header));
    QVector<Elf64_Shdr> sections(header.e_shnum);
    std::memcpy(sections.data(), base + header.e_shoff, sizeof(Elf64_Shdr) * header.e_shnum);
    QStringList names;
    for (const Elf64_Shdr& section : qAsConst(sections)) {
        if (section.sh_type != SHT_DYNSYM) {
            continue;
        }
        const char* texts = base + sections.at(int(section.sh_link)).sh_offset;
        QVector<Elf64_Sym> symbols(int(section.sh_size / sizeof(Elf64_Sym)));
        std::memcpy(symbols.data(), base + section.sh_offset, section.sh_size);
        for (const Elf64_Sym& symbol : qAsConst(symbols)) {
            if (symbol.st_shndx != SHN_UNDEF && ELF64_ST_BIND(symbol.st_info) != STB_LOCAL) {
                names.append(QString::fromUtf8(texts + symbol.st_name));
            }
        }
    }
    names.sort();
    return names;
}

} // namespace

/// The file that the host loads.
class TestBuiltModule : public QObject
{
    Q_OBJECT

private:
    QByteArray m_file;

    // Behind the magic text.
    QByteArray metadata() const { return m_file.mid(m_file.indexOf(c_magic) + c_magic.size(), 512); }

private Q_SLOTS:
    void initTestCase()
    {
        QFile file(c_module);
        QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.errorString()));
        m_file = file.readAll();
    }

    void metadataStandsInItOnce()
    {
        QCOMPARE(m_file.count(c_magic), 1);
        QVERIFY(m_file.indexOf(c_magic) > 0);
    }

    void metadataNamesFormatZeroAndQt515InRelease()
    {
        QCOMPARE(metadata().left(4).toHex(' '), QByteArray("00 05 0f 00"));
    }

    void metadataHoldsIidAndClassNameAndNothingElse()
    {
        QCborParserError error;
        const QCborValue value = QCborValue::fromCbor(metadata().mid(4), &error);
        const QCborMap wanted{{2, QStringLiteral("fr.vexa.rd.box.PDeviceHaitor")},
                              {3, QStringLiteral("PDeviceHaitor")}};
        QCOMPARE(value.toMap(), wanted);
    }

    void showsQtsEntryPointsAndNothingElse()
    {
        QCOMPARE(exportedNames(m_file),
                 QStringList({QStringLiteral("qt_plugin_instance"), QStringLiteral("qt_plugin_query_metadata")}));
    }

    void queryHandsTheMetadataBack()
    {
        const auto query = reinterpret_cast<const char* (*)()>(QLibrary::resolve(c_module, "qt_plugin_query_metadata"));
        QVERIFY(query != nullptr);
        QCOMPARE(QByteArray(query(), c_magic.size()), c_magic);
    }

    void isLoadedAsAQtPlugin()
    {
        QPluginLoader loader(c_module);
        QCOMPARE(loader.metaData().value(QLatin1String("IID")).toString(),
                 QStringLiteral("fr.vexa.rd.box.PDeviceHaitor"));
        QCOMPARE(loader.metaData().value(QLatin1String("className")).toString(), QStringLiteral("PDeviceHaitor"));
        auto* plugin = qobject_cast<DAbstractPlugin*>(loader.instance());
        QVERIFY2(plugin != nullptr, qPrintable(loader.errorString()));
        QVERIFY(plugin->objectUuid().isNull());
        QCOMPARE(plugin->pluginUuid(), QUuid(QStringLiteral("{b3b68306-268a-4bce-b400-9f7c133e4cef}")));
        plugin->initPluginCommands();
        QVERIFY(plugin->commandNames().contains(QStringLiteral("searchAndConnect")));
        delete plugin;
    }

    void rootIsOneObjectUntilItIsDeleted()
    {
        const auto instance = reinterpret_cast<QObject* (*)()>(QLibrary::resolve(c_module, "qt_plugin_instance"));
        QVERIFY(instance != nullptr);
        const QPointer<QObject> root = instance();
        QCOMPARE(instance(), root.data());
        delete root;
        const QPointer<QObject> next = instance();
        QVERIFY(qobject_cast<DAbstractPlugin*>(next) != nullptr);
        QCOMPARE(instance(), next.data());
        delete next;
    }
};

QTEST_GUILESS_MAIN(TestBuiltModule)
#include "tst_built_module.moc"
