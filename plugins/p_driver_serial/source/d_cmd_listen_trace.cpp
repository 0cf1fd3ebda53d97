#include "d_cmd_listen_trace.h"

// A stop command of its own: "stopListening" would end those who listen to the line, too.
DCmdListenTrace::DCmdListenTrace(const QMap<QString, QVariant>& parameters, SerialLine* line, QObject* parent)
    : DLineCommand(QStringLiteral("listenTrace"), QStringLiteral("stopListeningTrace"), parameters, line, parent)
{
    setDescription(QStringLiteral("Listen to the trace of the line, both directions"));
    declareAResult(QStringLiteral("entry"), QStringLiteral("strg"),
                   QStringLiteral("The next line of the trace, without its line end"), QVariant());
}

DCmdListenTrace::~DCmdListenTrace()
{
    stopListening();
}

bool DCmdListenTrace::commandExecute()
{
    if (line() == nullptr || !DLineCommand::commandExecute()) {
        return false;
    }
    line()->addTraceListener(this);
    return true;
}

void DCmdListenTrace::traceGrew(const QByteArray& line)
{
    commandUpdateResult(QStringLiteral("entry"), QString::fromUtf8(line));
}

bool DCmdListenTrace::finishTheCommand(bool& ok)
{
    stopListening();
    return DLineCommand::finishTheCommand(ok);
}

void DCmdListenTrace::stopListening()
{
    if (line() != nullptr) {
        line()->removeTraceListener(this);
    }
}

QSharedPointer<ICommand> DCmdListenTrace::createCommand(const QMap<QString, QVariant>& parameters) const
{
    return QSharedPointer<ICommand>(new DCmdListenTrace(parameters, line(), parent()));
}
