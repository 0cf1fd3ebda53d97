#pragma once

#include <QString>

/// The text with its control and format characters as "\x1b", so that nothing that came over the line, out of a file or
/// from the console reaches a terminal as a command.
QString visibleText(const QString& text);
