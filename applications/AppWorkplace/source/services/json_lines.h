#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QMap>
#include <QString>

/// The line, from 1, in which that byte of the text stands.
int lineOf(const QByteArray& text, int offset);

/// The lines of all keys of a JSON text by their paths, "driver.baudRate" for a key in the object "driver". The text
/// is good JSON.
QMap<QString, int> linesOfKeys(const QByteArray& text);

/// The object on one line, with its end. Control and format characters are written as "\u009b", those too that JSON
/// would let stand: a terminal takes some of them for commands.
QByteArray jsonLine(const QJsonObject& object);
