#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

/// The line, from 1, in which that byte of the text stands.
int lineOf(const QByteArray& text, int offset);

/// The lines of all keys of a JSON text by their paths, "driver.baudRate" for a key in the object "driver". The text
/// is good JSON.
QMap<QString, int> linesOfKeys(const QByteArray& text);
