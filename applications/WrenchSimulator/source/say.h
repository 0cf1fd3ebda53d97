#pragma once

#include <QString>

// Control characters are made visible: much of what is said here came from somewhere else.

/// One line on standard output, out at once: for programs and for the console.
void sayLine(const QString& text);

/// One line on standard error, with the program's name before it: for people.
void sayNote(const QString& text);
