#include "logging.h"

Q_LOGGING_CATEGORY(lcDriverSerial, "workplace.driver_serial")
