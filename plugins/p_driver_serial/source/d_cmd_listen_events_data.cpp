#include "d_cmd_listen_events_data.h"

DCmdListenEventsData::DCmdListenEventsData(const QMap<QString, QVariant>& parameters, SerialLine* line, QObject* parent)
    : DLineCommand(QStringLiteral("listenEventsData"), QStringLiteral("stopListening"), parameters, line, parent)
{
    setDescription(QStringLiteral("Listen to what arrives on the line"));
    declareAParameter(QStringLiteral("subscription"), QStringLiteral("bool"),
                      QStringLiteral("Ask for a lasting stream of chunks"), true);
    // A line has nothing to select from: it is taken so that a caller may use any driver in the same way.
    declareAParameter(QStringLiteral("validator"), QStringLiteral("strg"),
                      QStringLiteral("Which events to deliver; without effect on a serial line"), QVariant());
    declareAResult(QStringLiteral("frame"), QStringLiteral("strg"), QStringLiteral("The bytes that arrived"),
                   QVariant());
    declareAResult(QStringLiteral("number"), QStringLiteral("int"), QStringLiteral("Running number of the chunk"),
                   QVariant());
}

DCmdListenEventsData::~DCmdListenEventsData()
{
    stopListening();
}

bool DCmdListenEventsData::commandExecute()
{
    if (line() == nullptr || !DLineCommand::commandExecute()) {
        return false;
    }
    line()->addListener(this);
    return true;
}

void DCmdListenEventsData::chunkArrived(const QByteArray& bytes, int number)
{
    commandUpdateResults({{QStringLiteral("frame"), bytes}, {QStringLiteral("number"), number}});
}

bool DCmdListenEventsData::finishTheCommand(bool& ok)
{
    stopListening();
    return DLineCommand::finishTheCommand(ok);
}

void DCmdListenEventsData::stopListening()
{
    if (line() != nullptr) {
        line()->removeListener(this);
    }
}

QSharedPointer<ICommand> DCmdListenEventsData::createCommand(const QMap<QString, QVariant>& parameters) const
{
    return QSharedPointer<ICommand>(new DCmdListenEventsData(parameters, line(), parent()));
}
