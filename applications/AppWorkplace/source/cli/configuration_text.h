#pragma once

#include <QList>
#include <QString>
#include <QVariantList>

struct CliEntry;

/// A configuration file that says nothing but the defaults, each with a comment, in the language in use. It can be
/// read as it stands. What has no default has only its comment, with an example.
/// driverSettings: as driverSettings() tells them.
QString configurationText(const QList<CliEntry>& entries, const QVariantList& driverSettings);
