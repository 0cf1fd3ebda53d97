#pragma once

#include <QPointer>

#include <lib_plugins_management/d_abstract_command.h>

#include "serial_line.h"

/// What the commands of the driver share: the line, and how a run that does one thing answers.
/// The line may be destroyed before the command.
class DLineCommand : public DAbstractCommand
{
    Q_OBJECT

protected:
    DLineCommand(const QString& name, const QString& stopName, const QMap<QString, QVariant>& parameters,
                 SerialLine* line, QObject* parent);

    /// Declares the results of answer().
    void declareAnswer();
    /// Publishes "cmd_success" and "error" and ends the run. The command may be gone afterwards: the last thing done.
    /// error: one sentence, empty for success.
    void answer(const QString& error);

    SerialLine* line() const { return m_line.data(); }
    /// The answer when line() is null.
    static QString noLine();

private:
    const QPointer<SerialLine> m_line;
};
