#pragma once

#include <QString>

/// What makes a written file last. False, with the cause: it may not.

/// The bytes of an open file are on the disk.
bool syncFile(int descriptor, QString* cause);
/// The names in the folder are on the disk.
bool syncFolder(const QString& folder, QString* cause);
/// Gives a file a second name, unless there is one of that name.
bool linkFile(const QString& file, const QString& name, QString* cause);
