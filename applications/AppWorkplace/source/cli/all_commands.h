#pragma once

#include <QList>

struct CliEntry;

/// The commands of the program, in the order in which the help shows them.
QList<CliEntry> allCommands();
