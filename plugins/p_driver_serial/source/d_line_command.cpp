#include "d_line_command.h"

#include <QCoreApplication>
DLineCommand::DLineCommand(const QString& name, const QString& stopName, const QMap<QString, QVariant>& parameters,
                           SerialLine* line, QObject* parent)
    : DAbstractCommand(name, stopName, parameters, parent), m_line(line)
{}

void DLineCommand::declareAnswer()
{
    declareAResult(QStringLiteral("cmd_success"), QStringLiteral("bool"), QStringLiteral("Success"), false);
    declareAResult(QStringLiteral("error"), QStringLiteral("strg"), QStringLiteral("What is wrong and what to do"),
                   QString());
}

void DLineCommand::answer(const QString& error)
{
    commandUpdateResults({{QStringLiteral("cmd_success"), error.isEmpty()}, {QStringLiteral("error"), error}});
    bool ok = true; // a failure is told in the results, the run itself is in order
    finishTheCommand(ok);
}

QString DLineCommand::noLine()
{
    return QCoreApplication::translate(
        "SerialDriver", "The serial driver of this command has been removed: run the command on another one.");
}
