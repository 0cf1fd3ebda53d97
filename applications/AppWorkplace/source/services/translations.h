#pragma once

#include <QString>

/// The texts in another language. Program and plugins carry them as resources, ":/translations/NAME_LANGUAGE.qm", and
/// their sources are English.
namespace translations {

/// Installs all there are in this language, in place of another one's; again after plugins were loaded. Numbers for
/// people are written as the language does, see QLocale().
void install(const QString& language);

} // namespace translations
