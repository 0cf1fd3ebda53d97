#pragma once

#include <QObject>
#include <QString>

#include "doctor_bench.h"
#include "doctor_finding.h"

/// What is said of a stage before it begins.
struct DoctorStageText
{
    QString name;   ///< for programs, too: "port"
    QString checks; ///< what it checks
    QString sends;  ///< what it sends, and what that changes; empty: nothing
};

/// One stage of an examination: it finds out one thing. It is started once, when the stages before it have not failed,
/// and ends with sigEnded, once, unless it is stopped.
class DoctorStage : public QObject
{
    Q_OBJECT

public:
    /// kind: whose business it is when it fails. The bench outlives the stage.
    DoctorStage(const DoctorStageText& text, Problem::Kind kind, DoctorBench& bench);

    const DoctorStageText& text() const { return m_text; }
    virtual void start() = 0;
    /// Ends it in the middle; sigEnded does not come any more. No error when it has ended, or was not started.
    virtual void stop();
    /// False: a line that cannot be used ends it.
    virtual bool standsALineError() const { return false; }

Q_SIGNALS:
    /// Something that a person should know while it goes on.
    void sigNotice(const QString& text);
    void sigEnded(const DoctorFinding& finding);

protected:
    void pass(const QString& text);
    void skip(const QString& reason);
    /// cause and mend may be empty.
    void fail(const QString& what, const QString& cause, const QString& mend);
    void failSetUp(const QString& what, const QString& cause, const QString& mend);
    void fail(Problem problem);
    /// The driver has not taken the frame.
    void failUnwritten();

    int limitMs(int ownMs) const { return m_bench.order.stageLimitMs > 0 ? m_bench.order.stageLimitMs : ownMs; }
    /// The words in quotes, parted by commas; those that are many are cut.
    static QString quoted(const QStringList& lines);

    DoctorBench& m_bench;

private:
    const DoctorStageText m_text;
    const Problem::Kind m_kind;
};
