#include "doctor_stage.h"

DoctorStage::DoctorStage(const DoctorStageText& text, Problem::Kind kind, DoctorBench& bench)
    : m_bench(bench), m_text(text), m_kind(kind)
{}

void DoctorStage::stop()
{
    m_bench.talk.cancel();
}

void DoctorStage::pass(const QString& text)
{
    Q_EMIT sigEnded({DoctorFinding::Outcome::Passed, text, {}});
}

void DoctorStage::skip(const QString& reason)
{
    Q_EMIT sigEnded({DoctorFinding::Outcome::Skipped, reason, {}});
}

void DoctorStage::fail(const QString& what, const QString& cause, const QString& mend)
{
    fail(Problem{m_kind, {}, what, cause, mend});
}

void DoctorStage::failSetUp(const QString& what, const QString& cause, const QString& mend)
{
    fail(Problem{Problem::Kind::SetUp, {}, what, cause, mend});
}

void DoctorStage::fail(Problem problem)
{
    problem.step = m_text.name;
    Q_EMIT sigEnded({DoctorFinding::Outcome::Failed, problem.what, problem});
}

void DoctorStage::failUnwritten()
{
    failSetUp(tr("the port takes nothing"), m_bench.talk.writeError(), {});
}

QString DoctorStage::quoted(const QStringList& lines)
{
    constexpr int c_mostLines = 3;
    constexpr int c_mostCharacters = 60;
    QStringList shown;
    const QStringList first = lines.mid(0, c_mostLines);
    for (const QString& line : first) {
        const bool isLong = line.size() > c_mostCharacters;
        shown.append(QStringLiteral("\"%1\"").arg(isLong ? line.left(c_mostCharacters) + QStringLiteral("…") : line));
    }
    if (lines.size() > c_mostLines) {
        shown.append(QStringLiteral("…"));
    }
    return shown.join(QStringLiteral(", "));
}
