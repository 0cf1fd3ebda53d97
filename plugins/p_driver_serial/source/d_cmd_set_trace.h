#pragma once

#include "d_line_command.h"

/// "setTrace": switches the trace of the line on or off, at any time.
class DCmdSetTrace : public DLineCommand
{
    Q_OBJECT

public:
    DCmdSetTrace(const QMap<QString, QVariant>& parameters, SerialLine* line, QObject* parent);

    bool commandExecute() override;
    QSharedPointer<ICommand> createCommand(const QMap<QString, QVariant>& parameters) const override;
};
