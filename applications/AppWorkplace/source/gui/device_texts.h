#pragma once

#include <QString>

#include "../services/link_report.h"
#include "../services/session_step.h"

/// What people are told that a device is doing.
namespace device_texts {

/// A session on its way to listening.
QString starting(SessionStep step, const QString& serialId);

/// A link that is away: why, and what is done about it.
QString lostLink(const LinkReport& report);

} // namespace device_texts
