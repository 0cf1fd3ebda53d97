#include "d_cmd_close_connection.h"

DCmdCloseConnection::DCmdCloseConnection(const QMap<QString, QVariant>& parameters, SerialLine* line, QObject* parent)
    : DLineCommand(QStringLiteral("closeConnection"), QString(), parameters, line, parent)
{
    setDescription(QStringLiteral("Close the port; the next write or listener opens it again"));
    declareAnswer();
}

bool DCmdCloseConnection::commandExecute()
{
    if (!DLineCommand::commandExecute()) {
        return false;
    }
    if (line() != nullptr) {
        line()->closeConnection();
    }
    answer({});
    return true;
}

QSharedPointer<ICommand> DCmdCloseConnection::createCommand(const QMap<QString, QVariant>& parameters) const
{
    return QSharedPointer<ICommand>(new DCmdCloseConnection(parameters, line(), parent()));
}
