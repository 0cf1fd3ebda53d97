#include "fault_matrix.h"
#include "trial_run.h"

#include <QCoreApplication>
#include <QFile>
#include <QLoggingCategory>
#include <QStringList>
#include <QTest>

namespace {

constexpr int c_noticeableMs = 100;
constexpr double c_msPerSecond = 1000.;

QString seconds(int ms)
{
    return QString::number(ms / c_msPerSecond, 'f', 1) + QStringLiteral(" s");
}

QString cellText(const CellOutcome& outcome, FaultMatrix& matrix)
{
    QString text;
    switch (outcome.kind) {
    case CellOutcome::Kind::Failed:
        return QStringLiteral("[%1] %2").arg(matrix.failureNumber(outcome.text), seconds(outcome.ms));
    case CellOutcome::Kind::Done:
        text = outcome.ms > outcome.usualMs + c_noticeableMs ? QStringLiteral("ok ") + seconds(outcome.ms)
                                                             : QStringLiteral("ok");
        break;
    case CellOutcome::Kind::Mended:
        text = QStringLiteral("mended ") + seconds(outcome.ms);
        break;
    }
    return outcome.text.isEmpty() ? text : text + QStringLiteral(", ") + outcome.text;
}

/// A session's exchange is that of its set-up, and the first two questions of its keep-alive.
QList<FaultMatrix::Step> stepsOf(const FaultTrial& trial, const TrialRun& undisturbed)
{
    QList<FaultMatrix::Step> steps;
    int questions = 0;
    for (int i = 0; i < undisturbed.frames.size(); ++i) {
        const QByteArray& frame = undisturbed.frames.at(i);
        questions += frame == "DI:C" ? 1 : 0;
        if (trial.ratePerSecond > 0. && questions > 2) {
            break;
        }
        steps.append({undisturbed.framesBefore + i + 1, QString::fromLatin1(frame)});
    }
    if (steps.isEmpty()) {
        steps.append({undisturbed.framesBefore + 1, {}});
    }
    return steps;
}

} // namespace

/// Every command, every fault, every frame: none of them hangs, and each comes out as the document says.
class TestFaultMatrix : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void trial_data();
    void trial();
    void isAsTheDocumentSays();

private:
    FaultMatrix m_matrix;
};

void TestFaultMatrix::initTestCase()
{
    QLoggingCategory::setFilterRules(QStringLiteral("*=false"));
}

void TestFaultMatrix::trial_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < FaultTrial::all().size(); ++i) {
        QTest::newRow(FaultTrial::all().at(i).name.toLatin1().constData()) << i;
    }
}

void TestFaultMatrix::trial()
{
    QFETCH(int, index);
    const FaultTrial& trial = FaultTrial::all().at(index);
    const TrialRun undisturbed = runTrial(trial, {});
    QVERIFY2(undisturbed.complaint.isEmpty(), qPrintable(undisturbed.complaint));
    QCOMPARE(undisturbed.outcome.kind, CellOutcome::Kind::Done);
    FaultMatrix::Table table;
    table.trial = trial.name;
    table.steps = stepsOf(trial, undisturbed);
    QStringList complaints;
    const QStringList faults = matrixFaults();
    for (const QString& fault : faults) {
        QStringList cells;
        for (const FaultMatrix::Step& step : qAsConst(table.steps)) {
            const QString struck = step.triggerOf(fault);
            TrialRun run = runTrial(trial, struck);
            if (!run.complaint.isEmpty()) {
                complaints.append(QStringLiteral("%1: %2").arg(struck, run.complaint));
            }
            run.outcome.usualMs = undisturbed.outcome.ms;
            if (run.outcome.kind != CellOutcome::Kind::Failed) {
                run.outcome.text =
                    run.isLinkAway ? QStringLiteral("link away") : difference(run.traces, undisturbed.traces);
            }
            cells.append(cellText(run.outcome, m_matrix));
        }
        table.cells.append(cells);
    }
    m_matrix.tables.append(table);
    QVERIFY2(complaints.isEmpty(), qPrintable(complaints.join(QLatin1Char('\n'))));
}

void TestFaultMatrix::isAsTheDocumentSays()
{
    QFile document(QStringLiteral(DOCUMENT));
    if (qEnvironmentVariableIsSet("FAULT_MATRIX_UPDATE")) {
        QVERIFY2(document.open(QIODevice::WriteOnly), qPrintable(document.errorString()));
        document.write(m_matrix.toMarkdown().toUtf8());
        return;
    }
    QVERIFY2(document.open(QIODevice::ReadOnly), qPrintable(document.errorString()));
    const QString text = QString::fromUtf8(document.readAll());
    const QStringList changes = FaultMatrix::changes(FaultMatrix::fromMarkdown(text), m_matrix);
    QVERIFY2(changes.isEmpty(),
             qPrintable(QStringLiteral("%1\nWanted? cmake --build build/release --target fault_matrix")
                            .arg(changes.join(QLatin1Char('\n')))));
    QVERIFY2(text == m_matrix.toMarkdown(), "the text around the tables is not what would be written");
}

int main(int argc, char* argv[])
{
    qSetGlobalQHashSeed(0); // the same run each time
    QCoreApplication application(argc, argv);
    TestFaultMatrix test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_fault_matrix.moc"
