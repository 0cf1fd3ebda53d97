#pragma once

#include <QJsonObject>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

/// Reads "name=value" texts by a command's own description (ICommand::fullDescription()).
///
/// Values: bool true/false, on/off, yes/no, 1/0; int and uint decimal; strg a text with the escapes \r \n \t \\ and
/// \xHH; varM and varL JSON. A parameter without default must be given. A command that declares no parameter at all
/// may still read some: what is given to it is passed on as text.
struct ParameterReading
{
    QMap<QString, QVariant> values;
    QString error; ///< one sentence; empty: none
};
ParameterReading readParameters(const QJsonObject& description, const QStringList& texts);

/// A value as people read it, on one line.
QString shownValue(const QVariant& value);

/// A result as people read it: "name: value", and a list with each of its entries on a line of its own.
QStringList shownResult(const QString& name, const QVariant& value);
