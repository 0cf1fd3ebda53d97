#pragma once

#include <QString>
#include <QVariant>

/// Values as text that shows their type, so that a text "1" and a number 1 are not taken for each other:
///
///     true   12   "text"   bytes"text\r\n"   12u   1.5   2.0  {"key":"value"}   ["a","b"]   none (the invalid value)
///
/// Another type is shown as its name and text, and equals nothing that can be written by hand.
QString typedText(const QVariant& value);

/// "name=value" pairs of one map, in the order of the names, with " + " between them.
QString typedText(const QMap<QString, QVariant>& values);

/// The value of such a text; what is none of these is a text itself, without quotes.
QVariant valueOfText(const QString& text);

/// Cuts at blanks outside of quotes and brackets.
QStringList splitWords(const QString& text);

/// "name=value" words as a map.
QMap<QString, QVariant> mapOfWords(const QStringList& words);
