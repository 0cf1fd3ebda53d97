#include "scenario_reader.h"
#include "simulated_talk.h"

#include <QDir>
#include <QRegularExpression>
#include <QStringList>
#include <QTest>

#include <algorithm>
#include <functional>
#include <map>

namespace {
constexpr qint64 c_usPerMs = 1000;

/// What came of a weather: a host that says what a session says, patiently, and then listens.
struct Seen
{
    QStringList scan;    ///< the lines that answered it
    QStringList others;  ///< the lines behind it, until the wrench was unlocked
    QStringList heard;   ///< the lines from then on
    QStringList results; ///< of them, those that are good ones
    QStringList log;
    qint64 answerUs = 0; ///< from SC:TL:2 to its answer

    /// Lines of `heard` that no wrench says.
    int spoilt() const
    {
        static const QRegularExpression good(QStringLiteral("^(OK(:[01])?|RE:F:.*|ERR:[0-9]+|ATH)$"));
        return heard.size() - heard.filter(good).size();
    }
    bool isUnplugged() const { return log.contains(QStringLiteral("! closed")); }
    int distinct() const ///< results
    {
        QStringList lines = results;
        lines.removeDuplicates();
        return lines.size();
    }
};

constexpr int c_patienceMs = 1500;

/// Results of a wrench that nothing disturbs.
constexpr int c_undisturbed = 50;

QString folder()
{
    return QStringLiteral(WEATHERS);
}

Seen play(const QString& name)
{
    QString error;
    const std::optional<Scenario> scenario = readScenarioFile(folder() + QLatin1Char('/') + name, &error);
    if (!scenario) {
        qFatal("%s", qPrintable(error));
    }
    SimulatedTalk talk(*scenario);
    Seen seen;
    const auto wait = [&talk](int ms) {
        talk.pass(ms);
        return talk.takeLines();
    };
    // Until an answer comes; an echo is none.
    const auto say = [&talk](const char* frame) {
        static const QRegularExpression answer(QStringLiteral("^(OK|DATA|ERR|ATH)"),
                                               QRegularExpression::CaseInsensitiveOption);
        talk.send(frame);
        QStringList lines;
        for (int ms = 0; ms < c_patienceMs && lines.filter(answer).isEmpty(); ++ms) {
            talk.pass(1);
            lines += talk.takeLines();
        }
        return lines;
    };
    talk.send("ATS");
    seen.scan = wait(600);
    for (const char* frame : {"ATH", "ATD 020000000001", "DT:1"}) {
        seen.others += say(frame);
    }
    const qint64 askedUs = talk.nowUs;
    seen.others += say("SC:TL:2");
    for (const QString& entry : qAsConst(talk.log)) {
        if (entry.endsWith(QStringLiteral(": OK:2\r\n"))) {
            seen.answerUs = entry.section(QLatin1Char(':'), 0, 0).toLongLong() - askedUs;
        }
    }
    for (const char* frame : {"RE:1", "IDLE", "TR:C", "TR:N", "TR:C", "TR:N", "TR:C"}) {
        seen.others += say(frame);
    }
    seen.heard = say("DT:0");
    for (int i = 0; i < 28; ++i) {
        seen.heard += say("DI:C"); // the keep-alive
        seen.heard += wait(500);
    }
    seen.results = seen.heard.filter(QRegularExpression(QStringLiteral("^RE:F:[0-9.]+(,[0-9]+){6}$")));
    seen.log = talk.log;
    return seen;
}

using Check = std::function<bool(const Seen& seen)>;

const std::map<QString, Check>& checks()
{
    static const std::map<QString, Check> all = {
        {QStringLiteral("quiet_day.json"),
         [](const Seen& seen) {
             return seen.spoilt() == 0 && seen.results.size() >= c_undisturbed && !seen.isUnplugged();
         }},
        {QStringLiteral("noisy_radio.json"),
         [](const Seen& seen) { return seen.spoilt() > 5 && seen.results.size() > c_undisturbed / 2; }},
        {QStringLiteral("sleepy_wrench.json"),
         [](const Seen& seen) { return seen.answerUs >= 150 * c_usPerMs && seen.results.size() >= c_undisturbed; }},
        {QStringLiteral("dying_adapter.json"),
         [](const Seen& seen) {
             return seen.log.count(QStringLiteral("! closed")) == 3 && seen.log.count(QStringLiteral("! open")) == 3;
         }},
        {QStringLiteral("crowded_hall.json"), [](const Seen& seen) { return seen.scan.size() == 60; }},
        {QStringLiteral("two_of_one_number.json"),
         [](const Seen& seen) { return seen.scan.filter(QStringLiteral(" 2210 ")).size() == 4; }},
        {QStringLiteral("chatterbox.json"),
         [](const Seen& seen) {
             return (seen.others + seen.heard).filter(QStringLiteral("INFO")).size() == 1000 &&
                    seen.results.size() >= c_undisturbed;
         }},
        {QStringLiteral("stutterer.json"),
         [](const Seen& seen) {
             return seen.log.size() > 2 * (seen.others + seen.heard).size() && seen.spoilt() == 0 &&
                    seen.results.size() >= c_undisturbed;
         }},
        {QStringLiteral("wanderer.json"),
         [](const Seen& seen) { return seen.heard.contains(QStringLiteral("ERR:1")) && seen.distinct() > 40; }},
        {QStringLiteral("shouting_neighbour.json"),
         [](const Seen& seen) {
             return seen.others.contains(QStringLiteral("ATD 020000000001")) &&
                    seen.heard.contains(QStringLiteral("ATD 020000000002"));
         }},
        {QStringLiteral("wrong_echo.json"),
         [](const Seen& seen) {
             return !seen.others.contains(QStringLiteral("ATD 020000000001")) &&
                    seen.others.contains(QStringLiteral("ATD 020000000002"));
         }},
        {QStringLiteral("broken_firmware.json"),
         [](const Seen& seen) {
             return seen.scan.size() == 2 && !seen.others.contains(QStringLiteral("OK:2")) &&
                    seen.others.contains(QStringLiteral("ok:2"));
         }},
        {QStringLiteral("grumpy_wrench.json"),
         [](const Seen& seen) { return seen.others.contains(QStringLiteral("ERR:7")); }},
        {QStringLiteral("deaf_wrench.json"),
         [](const Seen& seen) {
             return seen.scan.size() == 2 && !seen.others.contains(QStringLiteral("DATA")) && seen.heard.isEmpty();
         }},
        {QStringLiteral("empty_hall.json"),
         [](const Seen& seen) {
             return seen.scan.filter(QStringLiteral(" 2210 ")).isEmpty() &&
                    seen.others.contains(QStringLiteral("ERR:1"));
         }},
        {QStringLiteral("double_talk.json"),
         [](const Seen& seen) { return seen.results.size() == 2 * seen.distinct() && seen.distinct() > 10; }},
        {QStringLiteral("stuck_line.json"),
         [](const Seen& seen) {
             const auto isOverlong = [](const QString& line) { return line.size() > 10000; };
             return std::any_of(seen.heard.begin(), seen.heard.end(), isOverlong) && seen.results.size() > 10;
         }},
        {QStringLiteral("flat_battery.json"),
         [](const Seen& seen) {
             return seen.heard.contains(QStringLiteral("ERR:1")) && seen.heard.contains(QStringLiteral("OK:0")) &&
                    !seen.results.isEmpty() && seen.results.size() < 10;
         }},
    };
    return all;
}
} // namespace

/// Each file of examples/weather, in simulated time.
class TestWeather : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachHasACheck();
    void doesWhatItSays_data();
    void doesWhatItSays();
};

void TestWeather::eachHasACheck()
{
    QStringList checked;
    for (const auto& check : checks()) {
        checked.append(check.first);
    }
    QCOMPARE(checked, QDir(folder()).entryList({QStringLiteral("*.json")}, QDir::Files, QDir::Name));
}

void TestWeather::doesWhatItSays_data()
{
    QTest::addColumn<QString>("name");
    for (const auto& check : checks()) {
        QTest::newRow(qPrintable(check.first)) << check.first;
    }
}

void TestWeather::doesWhatItSays()
{
    QFETCH(QString, name);
    const Seen seen = play(name);
    const QString told = (seen.scan + seen.others + seen.heard).join(QLatin1Char('\n'));
    QVERIFY2(checks().at(name)(seen), qPrintable(told));
    QCOMPARE(play(name).log, seen.log); // each time the same
}

QTEST_GUILESS_MAIN(TestWeather)
#include "tst_weather.moc"
