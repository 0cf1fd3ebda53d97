#include "cell_outcome.h"
#include "fault_matrix.h"
#include "fault_trial.h"
#include "simulator_run.h"
#include "workplace_run.h"

#include <QFile>
#include <QJsonObject>
#include <QRegularExpression>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>
#include <QVector>

#include <map>
#include <memory>

namespace {

constexpr int c_together = 8;      // runs that mostly wait for their simulator
constexpr int c_cellsOfATrial = 4; // their faults go on where those of the trial before ended
constexpr double c_longestSeconds = 20.;

const QString c_port = QStringLiteral("The simulated port");
const QString c_events = QStringLiteral("eventData");

struct Cell
{
    int trial = 0;
    QString fault; ///< with its trigger; empty: undisturbed
    QString told;  ///< by the matrix, a failure by its text
};

FaultMatrix matrix()
{
    QFile document(QStringLiteral(DOCUMENT));
    return document.open(QIODevice::ReadOnly) ? FaultMatrix::fromMarkdown(QString::fromUtf8(document.readAll()))
                                              : FaultMatrix();
}

/// How long the matrix says that it takes; what takes longer than a sample may is left out.
bool isShort(const QString& cell)
{
    static const QRegularExpression seconds(QStringLiteral("([0-9.]+) s"));
    return seconds.match(cell).captured(1).toDouble() <= c_longestSeconds;
}

QVector<Cell> sample()
{
    const FaultMatrix all = matrix();
    const QStringList faults = matrixFaults();
    QVector<Cell> cells;
    int next = 0;
    for (int trial = 0; trial < all.tables.size(); ++trial) {
        const FaultMatrix::Table& table = all.tables.at(trial);
        cells.append({trial, {}, QStringLiteral("ok")});
        for (int taken = 0, tried = 0; taken < c_cellsOfATrial && tried < faults.size(); ++tried, ++next) {
            const int fault = next % faults.size();
            const int step = next % table.steps.size();
            const QString& cell = table.cells.at(fault).at(step);
            if (isShort(cell)) {
                const QString failure = all.failureOf(cell);
                cells.append(
                    {trial, table.steps.at(step).triggerOf(faults.at(fault)), failure.isEmpty() ? cell : failure});
                ++taken;
            }
        }
    }
    return cells;
}

/// A trial through the real programs: a simulator with its terminal, and the application with its plugins.
class RealRun
{
public:
    RealRun(const FaultTrial& trial, const QString& fault) : m_trial(trial)
    {
        if (!m_simulator.start(trial.simulatorOptions(fault))) {
            return;
        }
        QFile configuration(m_folder.filePath(QStringLiteral("configuration.json")));
        if (!configuration.open(QIODevice::WriteOnly)) {
            return;
        }
        configuration.write(
            trial.keepAliveMs == 0
                ? QByteArrayLiteral("{}")
                : QStringLiteral("{\"driver\": {\"keepAliveSilenceMs\": %1}}").arg(trial.keepAliveMs).toLatin1());
        const QString seconds = QString::number(trial.limitMs / 1000.);
        QStringList arguments{QStringLiteral("--json"), QStringLiteral("--config"), configuration.fileName(),
                              QStringLiteral("--serial-id"), c_serialId};
        if (trial.isSession()) {
            arguments << QStringLiteral("session") << QStringLiteral("--program")
                      << QString::number(FaultTrial::c_program) << QStringLiteral("--duration") << seconds
                      << QStringLiteral("--reconnect-limit") << QString::number(FaultTrial::c_reconnectLimitMs / 1000);
        } else {
            arguments << QStringLiteral("run") << QStringLiteral("--limit") << seconds;
            if (trial.connects) {
                arguments << QStringLiteral("--connect");
            }
            arguments << trial.command << trial.parameters;
        }
        m_isStarted = m_run.startOn(m_simulator.port(), arguments);
    }

    bool waitForEnd() { return m_isStarted && m_run.waitForEnd(); }
    QByteArray report() const { return m_simulator.report() + m_run.report(); }

    TrialTraces traces()
    {
        TrialTraces traces;
        int events = 0;
        const QList<QJsonObject> published = m_run.events(QStringLiteral("results"));
        for (const QJsonObject& each : published) {
            const QJsonObject results = each.value(QLatin1String("results")).toObject();
            for (auto result = results.begin(); result != results.end(); ++result) {
                traces.results.insert(result.key(), result.value());
                events += result.key() == c_events ? 1 : 0;
            }
        }
        if (events > 0) {
            traces.results.insert(c_events, events);
        }
        traces.wrench = stateOf(m_simulator.say(QStringLiteral("wrenches")));
        return traces;
    }

    /// What is not as the cell tells; empty: nothing.
    QString contradiction(const QString& told, const TrialTraces& undisturbed)
    {
        static const QRegularExpression success(QStringLiteral("^(ok|mended)(?: [0-9.]+ s)?(?:, (.*))?$"));
        const QRegularExpressionMatch match = success.match(told);
        if (!match.hasMatch()) {
            return contradictsFailure(told);
        }
        const bool isEnd = m_trial.isEndless() && m_run.exitStatus() == 1 &&
                           m_run.messages().contains(QLatin1String("it was ended by the time limit"));
        if (m_run.exitStatus() != 0 && !isEnd) {
            return QStringLiteral("the exit status is %1").arg(m_run.exitStatus());
        }
        const bool isMended = m_run.output().contains(QLatin1String("\"gapMs\""));
        if (isMended != (match.captured(1) == QLatin1String("mended"))) {
            return isMended ? QStringLiteral("the link was restored") : QStringLiteral("no link was restored");
        }
        TrialTraces found = traces();
        if (m_trial.ratePerSecond > 0.) { // how many come in its time depends on when it began
            found.results.insert(c_events, undisturbed.results.value(c_events));
        }
        const QString wanted = withoutCount(match.captured(2));
        const QString differs = difference(found, undisturbed);
        return differs == wanted ? QString() : QStringLiteral("it differs by \"%1\"").arg(differs);
    }

private:
    QString contradictsFailure(const QString& told)
    {
        const QString cause = told.section(QStringLiteral(": "), 1);
        if (m_run.exitStatus() == 0) {
            return QStringLiteral("it did not fail");
        }
        if (cause.startsWith(c_port)) { // a real one has a name
            return m_run.exitStatus() == 3 && m_run.messages().contains(QLatin1String("port"))
                       ? QString()
                       : QStringLiteral("it does not blame the port");
        }
        return m_run.messages().contains(cause) ? QString() : QStringLiteral("it says another cause");
    }

    static QString withoutCount(QString text)
    {
        static const QRegularExpression count(QStringLiteral("(?:, )?[0-9]+ of [0-9]+ results"));
        return text.remove(count);
    }

    const FaultTrial& m_trial;
    QTemporaryDir m_folder;
    SimulatorRun m_simulator;
    WorkplaceRun m_run;
    bool m_isStarted = false;
};

} // namespace

/// A sample of the matrix through the real programs: each command, and each fault.
class TestFaultSample : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cell_data();
    void cell();

private:
    const QVector<Cell> m_sample = sample();
    std::map<int, std::unique_ptr<RealRun>> m_runs;
    TrialTraces m_undisturbed; // of the trial that is being looked at
};

void TestFaultSample::cell_data()
{
    QTest::addColumn<int>("index");
    QVERIFY(!m_sample.isEmpty());
    for (int i = 0; i < m_sample.size(); ++i) {
        const Cell& cell = m_sample.at(i);
        const QString& trial = FaultTrial::all().at(cell.trial).name;
        QTest::addRow("%s, %s", qPrintable(trial), cell.fault.isEmpty() ? "undisturbed" : qPrintable(cell.fault)) << i;
    }
}

void TestFaultSample::cell()
{
    QFETCH(int, index);
    if (m_runs.count(index) == 0) {
        m_runs.clear();
        for (int i = index; i < qMin(index + c_together, m_sample.size()); ++i) {
            m_runs[i] = std::make_unique<RealRun>(FaultTrial::all().at(m_sample.at(i).trial), m_sample.at(i).fault);
        }
    }
    const Cell& cell = m_sample.at(index);
    RealRun& run = *m_runs.at(index);
    QVERIFY2(run.waitForEnd(), run.report());
    if (cell.fault.isEmpty()) {
        m_undisturbed = run.traces();
    }
    const QString wrong = run.contradiction(cell.told, m_undisturbed);
    QVERIFY2(wrong.isEmpty(), QStringLiteral("%1, and the matrix says: %2\n%3")
                                  .arg(wrong, cell.told, QString::fromUtf8(run.report()))
                                  .toUtf8());
}

QTEST_GUILESS_MAIN(TestFaultSample)

#include "tst_fault_sample.moc"
