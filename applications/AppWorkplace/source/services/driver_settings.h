#pragma once

#include <QVariantList>

#include <optional>

#include "problem.h"
#include "settings.h"

class DAbstractPlugin;

/// The settings of a driver plugin that a configuration may hold: maps of "name", "default" and "allowed", as its
/// property "settings" tells them. Without those that the workplace itself sets. Empty: the driver does not tell.
QVariantList driverSettings(const DAbstractPlugin& driver);

/// What of the configuration's "driver" the plugin does not know. None when the driver does not tell.
std::optional<Problem> checkDriverSettings(const DAbstractPlugin& driver, const Settings& settings);
