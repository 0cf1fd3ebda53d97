#include "logging.h"

Q_LOGGING_CATEGORY(lcPluginsManagement, "workplace.plugins_management")
