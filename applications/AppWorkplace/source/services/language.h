#pragma once

#include <QString>
#include <QStringList>

#include "problem.h"
#include "settings.h"

/// The language of the texts for people. What is for programs (--json, files, log categories) is the same in all.
namespace language {

struct Choice
{
    QString name; ///< "en", "de" or "fr"
    SettingOrigin origin;
};

/// The languages there are.
QStringList all();

/// The language that the settings name; else that of LC_ALL, LC_MESSAGES or LANG, the first that says anything; else
/// English, also for a language that there is not.
Choice choose(const Settings& settings);

/// There is no such language.
Problem refusal(const QString& name);

} // namespace language
