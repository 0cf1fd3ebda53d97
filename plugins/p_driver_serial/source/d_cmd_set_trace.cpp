#include "d_cmd_set_trace.h"

#include <QCoreApplication>
DCmdSetTrace::DCmdSetTrace(const QMap<QString, QVariant>& parameters, SerialLine* line, QObject* parent)
    : DLineCommand(QStringLiteral("setTrace"), QString(), parameters, line, parent)
{
    setDescription(QStringLiteral("Write down what goes over the line"));
    declareAParameter(QStringLiteral("file"), QStringLiteral("strg"),
                      QStringLiteral("The file to write anew, \"-\" for standard error, empty to end the trace"),
                      QVariant());
    declareAnswer();
}

bool DCmdSetTrace::commandExecute()
{
    if (!DLineCommand::commandExecute()) {
        return false;
    }
    const QVariant file = getParameterValue(QStringLiteral("file"), QVariant());
    if (file.userType() != QMetaType::QString) {
        answer(QCoreApplication::translate(
            "SerialDriver", "\"setTrace\" needs a \"file\" that is a text: a path, \"-\" for standard error, or empty "
                            "to end the trace."));
    } else {
        answer(line() == nullptr ? noLine() : line()->setTrace(file.toString()));
    }
    return true;
}

QSharedPointer<ICommand> DCmdSetTrace::createCommand(const QMap<QString, QVariant>& parameters) const
{
    return QSharedPointer<ICommand>(new DCmdSetTrace(parameters, line(), parent()));
}
