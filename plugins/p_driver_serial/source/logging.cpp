#include "logging.h"

Q_LOGGING_CATEGORY(lcDriverSerial, "workplace.driver_serial")
Q_LOGGING_CATEGORY(lcDriverSerialLine, "workplace.driver_serial.line")
