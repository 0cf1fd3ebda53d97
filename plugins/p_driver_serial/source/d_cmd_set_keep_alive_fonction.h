#pragma once

#include "d_line_command.h"

/// "setKeepAliveFonction": the frame that asks a silent device whether it is there, and how its answer begins.
class DCmdSetKeepAliveFonction : public DLineCommand
{
    Q_OBJECT

public:
    DCmdSetKeepAliveFonction(const QMap<QString, QVariant>& parameters, SerialLine* line, QObject* parent);

    bool commandExecute() override;
    QSharedPointer<ICommand> createCommand(const QMap<QString, QVariant>& parameters) const override;
};
