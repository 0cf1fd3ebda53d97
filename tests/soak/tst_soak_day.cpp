#include "dongle_port.h"
#include "process_figures.h"
#include "session_checks.h"
#include "simulated_workplace.h"

#include "services/session.h"

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QStringList>
#include <QTest>
#include <QVector>

#include <deque>

namespace {

constexpr int c_shortMinutes = 20;
constexpr int c_msPerMinute = 60000;
constexpr int c_disturbanceMs = 75000; // from one to the next; each is mended within seconds
constexpr int c_awayMs = 7500;         // of the wrench
constexpr int c_figuresOfARun = 24;
constexpr int c_warmUpFigures = 4; // of them: caches fill
constexpr qint64 c_mayGrowKb = 1024;
const char c_rate[] = "64"; // a second: 5.5 million lines a day

/// From the environment: how long it takes by its own clock.
int minutes()
{
    bool isNumber = false;
    const int given = qEnvironmentVariableIntValue("SOAK_MINUTES", &isNumber);
    return isNumber && given >= c_shortMinutes ? given : c_shortMinutes;
}

/// The lines that arrive at the plug, and those that the session tells, side by side. Both are forgotten as they agree.
class Comparison
{
public:
    explicit Comparison(LineRecord& record) : m_record(record) {}

    void told(const TighteningResult& result)
    {
        ++results;
        m_told.push_back(fieldsOf(result.eventData));
    }

    /// Reads on in the record and empties it. Empty: all that was told is what had arrived, in its order.
    QString compare()
    {
        for (const LineRecord::Entry& entry : qAsConst(m_record.entries)) {
            if (entry.kind != LineRecord::Kind::Arrived && entry.kind != LineRecord::Kind::Sent) {
                m_rest.clear(); // nothing that comes later belongs to it
            } else if (entry.kind == LineRecord::Kind::Arrived) {
                m_rest += entry.bytes;
                takeLines();
            }
        }
        m_record.entries.clear();
        while (!m_told.empty() && !m_arrived.empty()) {
            if (m_told.front() != m_arrived.front()) {
                return QStringLiteral("\"%1\" was told, and \"%2\" had arrived")
                    .arg(m_told.front().join(QLatin1Char(',')), m_arrived.front().join(QLatin1Char(',')));
            }
            m_told.pop_front();
            m_arrived.pop_front();
        }
        return m_told.empty() && m_arrived.empty()
                   ? QString()
                   : QStringLiteral("%1 results too many, %2 too few").arg(m_told.size()).arg(m_arrived.size());
    }

    int results = 0;
    qint64 lines = 0;

private:
    void takeLines()
    {
        LineRecord whole;
        const int end = m_rest.lastIndexOf("\r\n") + 2;
        if (end < 2) {
            return;
        }
        whole.entries.append({LineRecord::Kind::Arrived, 0, m_rest.left(end)});
        m_rest.remove(0, end);
        lines += whole.entries.constFirst().bytes.count('\n');
        const QList<QStringList> fields = resultsOnTheLine(whole, 0, 1);
        m_arrived.insert(m_arrived.end(), fields.cbegin(), fields.cend());
    }

    LineRecord& m_record;
    QByteArray m_rest;
    std::deque<QStringList> m_arrived;
    std::deque<QStringList> m_told;
};

} // namespace

/// One session that listens for a day, with a link that is lost every minute or so and restored each time.
class TestSoakDay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLoggingCategory::setFilterRules(QStringLiteral("*=false\ndefault.info=true")); }
    void staysAsItIs();
};

void TestSoakDay::staysAsItIs()
{
    SimulatedWorkplace workplace({QStringLiteral("--rate"), QLatin1String(c_rate), QStringLiteral("--scan-period"),
                                  QStringLiteral("500"), QStringLiteral("--tightening-time"), QStringLiteral("0")});
    SessionOrder order;
    order.serialId = QStringLiteral("2210");
    order.program = 1;
    order.pauseSeed = 1;
    Session session(workplace.linked(), order);
    Comparison comparison(workplace.record);
    int restored = 0;
    bool isListening = false;
    bool hasEnded = false;
    connect(&session, &Session::sigStepStarted, &session,
            [&](Session::Step step) { isListening = isListening || step == SessionStep::Listen; });
    connect(&session, &Session::sigResult, &session, [&](const TighteningResult& result) { comparison.told(result); });
    connect(&session, &Session::sigLink, &session,
            [&](const LinkReport& report) { restored += report.kind == LinkReport::Kind::Restored ? 1 : 0; });
    connect(&session, &Session::sigFinished, &session, [&] { hasEnded = true; });
    session.start();
    QVERIFY(workplace.runUntil([&] { return isListening; }, c_msPerMinute));
    workplace.record.entries.clear();

    const char* const disturbances[] = {"unplug 300", "range 2210 off", "unplug 3000", "power 2210 off"};
    const qint64 endUs = workplace.clock.nowUs() + qint64{minutes()} * c_msPerMinute * 1000;
    const qint64 figureUs = (endUs - workplace.clock.nowUs()) / c_figuresOfARun;
    qint64 nextFigureUs = workplace.clock.nowUs() + figureUs;
    QVector<ProcessFigures> figures;
    for (int i = 0; workplace.clock.nowUs() < endUs; ++i) {
        workplace.commandLater(0, QLatin1String(disturbances[i % 4]));
        workplace.commandLater(c_awayMs, QStringLiteral("range 2210 on"));
        workplace.commandLater(c_awayMs, QStringLiteral("power 2210 on"));
        const int restoredBefore = restored;
        workplace.run(c_disturbanceMs);
        const QString wrong = comparison.compare();
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
        QVERIFY2(restored > restoredBefore, disturbances[i % 4]);
        if (workplace.clock.nowUs() >= nextFigureUs) {
            nextFigureUs += figureUs;
            figures.append(ProcessFigures::now());
            figures.last().timers = workplace.clock.waiting();
            figures.last().commands = workplace.runningCommands();
            qInfo("%8lld lines, %4d reconnections: %s", comparison.lines, restored, qPrintable(figures.last().text()));
        }
    }
    session.interrupt();
    QVERIFY(workplace.runUntil([&] { return hasEnded; }, c_msPerMinute));
    const QString left = leftovers(workplace);
    QVERIFY2(left.isEmpty(), qPrintable(left));

    QVERIFY(figures.size() > c_warmUpFigures);
    const ProcessFigures& first = figures.at(c_warmUpFigures);
    for (int i = c_warmUpFigures; i < figures.size(); ++i) {
        const ProcessFigures& each = figures.at(i);
        QVERIFY2(each.residentKb <= first.residentKb + c_mayGrowKb, qPrintable(each.text()));
        QCOMPARE(each.descriptors, first.descriptors);
        QCOMPARE(each.threads, first.threads);
        QCOMPARE(each.commands, first.commands);
        QVERIFY2(each.timers <= first.timers + 1, qPrintable(each.text())); // one comes and goes with the traffic
    }
    QVERIFY(comparison.results > 0);
}

int main(int argc, char* argv[])
{
    qSetGlobalQHashSeed(0); // the same run each time
    QCoreApplication application(argc, argv);
    TestSoakDay test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_soak_day.moc"
