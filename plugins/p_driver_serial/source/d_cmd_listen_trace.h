#pragma once

#include "d_line_command.h"

/// "listenTrace": publishes each line of the trace as it grows, until it is stopped.
class DCmdListenTrace : public DLineCommand, private ITraceListener
{
    Q_OBJECT

public:
    DCmdListenTrace(const QMap<QString, QVariant>& parameters, SerialLine* line, QObject* parent);
    ~DCmdListenTrace() override;

    bool commandExecute() override;
    bool finishTheCommand(bool& ok) override;
    QSharedPointer<ICommand> createCommand(const QMap<QString, QVariant>& parameters) const override;

private:
    void traceGrew(const QByteArray& line) override;
    void stopListening();
};
