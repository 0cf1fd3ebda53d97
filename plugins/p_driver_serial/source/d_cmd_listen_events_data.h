#pragma once

#include "d_line_command.h"

/// "listenEventsData": publishes each chunk that arrives on the line, until it is stopped.
class DCmdListenEventsData : public DLineCommand, private ILineListener
{
    Q_OBJECT

public:
    DCmdListenEventsData(const QMap<QString, QVariant>& parameters, SerialLine* line, QObject* parent);
    ~DCmdListenEventsData() override;

    bool commandExecute() override;
    bool finishTheCommand(bool& ok) override;
    QSharedPointer<ICommand> createCommand(const QMap<QString, QVariant>& parameters) const override;

private:
    void chunkArrived(const QByteArray& bytes, int number) override;
    void stopListening();
};
