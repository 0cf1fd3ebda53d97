#pragma once

#include <QString>
#include <QVector>

#include "settings.h"

/// One setting that the command line and the configuration file both know.
struct SettingEntry
{
    const char* key;                   ///< in the file
    const char* option;                ///< on the command line, without the dashes
    const char* valueName;             ///< of the option; null: a switch
    const char* description;           ///< English; see shownDescription()
    QString Settings::*text = nullptr; ///< where a text goes
    bool Settings::*isOn = nullptr;    ///< where a switch goes

    /// The description in the language in use.
    QString shownDescription() const;
};

/// All of them, in the order in which they are shown.
const QVector<SettingEntry>& settingEntries();
