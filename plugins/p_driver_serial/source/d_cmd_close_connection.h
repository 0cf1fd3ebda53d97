#pragma once

#include "d_line_command.h"

/// "closeConnection": closes the port once the frames asked before are written.
class DCmdCloseConnection : public DLineCommand
{
    Q_OBJECT

public:
    DCmdCloseConnection(const QMap<QString, QVariant>& parameters, SerialLine* line, QObject* parent);

    bool commandExecute() override;
    QSharedPointer<ICommand> createCommand(const QMap<QString, QVariant>& parameters) const override;
};
