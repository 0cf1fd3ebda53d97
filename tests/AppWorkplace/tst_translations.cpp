#include <QCoreApplication>
#include <QLocale>
#include <QTest>

#include "services/language.h"
#include "services/problem.h"
#include "services/translations.h"

namespace {

Settings named(const char* name)
{
    Settings settings;
    settings.language = QLatin1String(name);
    settings.origins.insert(QStringLiteral("language"),
                            {SettingOrigin::Kind::CommandLine, QStringLiteral("--language"), 0});
    return settings;
}

QString firstLine()
{
    return Problem{Problem::Kind::SetUp, QStringLiteral("configuration"), QStringLiteral("x"), {}, {}}
        .lines()
        .constFirst();
}

} // namespace

class TestTranslations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanupTestCase();

    void choosesByTheEnvironment_data();
    void choosesByTheEnvironment();
    void putsWhatIsNamedBeforeTheEnvironment();
    void speaksTheLanguage();
    void writesNumbersAsTheLanguageDoes();
};

void TestTranslations::init()
{
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        qunsetenv(variable);
    }
}

void TestTranslations::cleanupTestCase()
{
    qputenv("LC_ALL", "C.UTF-8");
}

void TestTranslations::choosesByTheEnvironment_data()
{
    QTest::addColumn<QByteArray>("all");
    QTest::addColumn<QByteArray>("messages");
    QTest::addColumn<QByteArray>("lang");
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("variable");
    const auto row = [](const char* name, const char* all, const char* messages, const char* lang, const char* language,
                        const char* variable) {
        QTest::newRow(name) << QByteArray(all) << QByteArray(messages) << QByteArray(lang)
                            << QString::fromUtf8(language) << QString::fromUtf8(variable);
    };
    row("nothing", "", "", "", "en", "");
    row("LANG", "", "", "de_DE.UTF-8", "de", "LANG");
    row("LC_MESSAGES before LANG", "", "fr_CH.UTF-8", "de_DE.UTF-8", "fr", "LC_MESSAGES");
    row("LC_ALL before all", "C.UTF-8", "fr_FR", "de_DE", "en", "LC_ALL");
    row("a language alone", "", "", "fr", "fr", "LANG");
    row("with a modifier", "", "", "de@euro", "de", "LANG");
    row("a language that there is not", "", "", "nl_NL.UTF-8", "en", "LANG");
    row("one that only begins alike", "", "", "den_CA", "en", "LANG");
}

void TestTranslations::choosesByTheEnvironment()
{
    QFETCH(QByteArray, all);
    QFETCH(QByteArray, messages);
    QFETCH(QByteArray, lang);
    QFETCH(QString, language);
    QFETCH(QString, variable);
    qputenv("LC_ALL", all);
    qputenv("LC_MESSAGES", messages);
    qputenv("LANG", lang);
    const language::Choice choice = language::choose(Settings());
    QCOMPARE(choice.name, language);
    QCOMPARE(choice.origin.source, variable);
    QCOMPARE(choice.origin.kind, variable.isEmpty() ? SettingOrigin::Kind::Default : SettingOrigin::Kind::Environment);
}

void TestTranslations::putsWhatIsNamedBeforeTheEnvironment()
{
    qputenv("LC_ALL", "de_DE.UTF-8");
    const language::Choice choice = language::choose(named("fr"));
    QCOMPARE(choice.name, QStringLiteral("fr"));
    QCOMPARE(choice.origin.kind, SettingOrigin::Kind::CommandLine);
}

void TestTranslations::speaksTheLanguage()
{
    translations::install(QStringLiteral("de"));
    QCOMPARE(firstLine(), QStringLiteral("Konfiguration: x"));
    translations::install(QStringLiteral("fr"));
    QCOMPARE(firstLine(), QStringLiteral("configuration: x"));
    QCOMPARE(QCoreApplication::translate("Step", "link"), QStringLiteral("liaison"));
    translations::install(QStringLiteral("en"));
    QCOMPARE(QCoreApplication::translate("Step", "link"), QStringLiteral("link"));
}

void TestTranslations::writesNumbersAsTheLanguageDoes()
{
    translations::install(QStringLiteral("de"));
    QCOMPARE(QLocale().toString(1234.5, 'f', 2), QStringLiteral("1234,50"));
    translations::install(QStringLiteral("en"));
    QCOMPARE(QLocale().toString(1234.5, 'f', 2), QStringLiteral("1234.50"));
}

QTEST_GUILESS_MAIN(TestTranslations)

#include "tst_translations.moc"
