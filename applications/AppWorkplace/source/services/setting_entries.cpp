#include "setting_entries.h"

#include <QCoreApplication>

QString SettingEntry::shownDescription() const
{
    return QCoreApplication::translate("Settings", description);
}

const QVector<SettingEntry>& settingEntries()
{
    static const QVector<SettingEntry> entries = {
        {"port", "port", "PATH|simulated[:FILE]",
         QT_TRANSLATE_NOOP("Settings", "The serial port, or \"simulated\" (the default) for a simulator of its own, "
                                       "which plays the scenario FILE when it is named."),
         &Settings::port},
        {"serialId", "serial-id", "NUMBER", QT_TRANSLATE_NOOP("Settings", "The serial number of the wrench."),
         &Settings::serialId},
        {"plugins", "plugins", "DIR", QT_TRANSLATE_NOOP("Settings", "The folder of the plugins."),
         &Settings::pluginFolder},
        {"data", "data", "DIR", QT_TRANSLATE_NOOP("Settings", "The folder for what is kept of a device."),
         &Settings::dataFolder},
        {"trace", "trace", "FILE|-",
         QT_TRANSLATE_NOOP("Settings", "Writes down every byte on the line; - for standard error."),
         &Settings::traceFile},
        {"language", "language", "en|de|fr",
         QT_TRANSLATE_NOOP("Settings", "The language of the texts; that of the environment when not said."),
         &Settings::language},
        {"json", "json", nullptr, QT_TRANSLATE_NOOP("Settings", "One JSON object a line, messages on standard error."),
         nullptr, &Settings::isJson},
        {"quiet", "quiet", nullptr, QT_TRANSLATE_NOOP("Settings", "Results and errors only."), nullptr,
         &Settings::isQuiet},
        {"verbose", "verbose", nullptr,
         QT_TRANSLATE_NOOP("Settings", "Also shows what is in use, all log lines, and how long it takes."), nullptr,
         &Settings::isVerbose},
    };
    return entries;
}
