#pragma once

#include <QLoggingCategory>

Q_DECLARE_LOGGING_CATEGORY(lcDriverSerial)
/// What the property "lineError" says as well: an application that shows the property can leave it out.
Q_DECLARE_LOGGING_CATEGORY(lcDriverSerialLine)
