#pragma once

#include <QDebug>

class QObject;

/// Begins a critical message of the plugin in its fixed form: a line break, date, thread, object, place. The caller
/// streams the message itself behind it.
/// sourcePath, line: the place that the host's tools know this message by; not where it stands today.
QDebug criticalLogLine(const QObject* object, const char* sourcePath, int line);
