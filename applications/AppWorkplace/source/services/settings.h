#pragma once

#include <QJsonObject>
#include <QMap>
#include <QString>

/// Where the value of a setting comes from.
struct SettingOrigin
{
    enum class Kind { Default, File, Environment, CommandLine };

    Kind kind = Kind::Default;
    QString source; ///< the file, the variable or the option
    int line = 0;   ///< of the file
};

/// What the workplace is to use, from the command line and the configuration file.
struct Settings
{
    QString port = QStringLiteral("simulated"); ///< a device file; "simulated" or "simulated:FILE": a simulator
    QString serialId;                           ///< of the wrench; empty: not said
    QString pluginFolder;                       ///< empty: the one that belongs to this program
    QString dataFolder;                         ///< empty: this user's application data
    QString traceFile;                          ///< "-": standard error; empty: no trace
    QString language;                           ///< "en", "de" or "fr"; empty: that of the environment
    bool isJson = false;
    bool isQuiet = false;
    bool isVerbose = false;
    QJsonObject driver; ///< settings of the driver plugin: "baudRate", "parity", …

    /// What the file says for the commands of the program, by the command's name and the option's key.
    QJsonObject commands;
    QString configurationFile; ///< empty: none was read
    /// By the path of the key: "port", "driver.baudRate". Absent: the default.
    QMap<QString, SettingOrigin> origins;

    int deviceNumber = 1;                               ///< among the devices of this process, from 1
    QString simulatedSerialId = QStringLiteral("2210"); ///< of the simulator's own wrench, the first of a scenario

    bool isSimulated() const
    {
        return port == QLatin1String("simulated") || port.startsWith(QLatin1String("simulated:"));
    }
    /// True: the simulator plays scenarioFile().
    bool hasScenario() const { return isSimulated() && port.contains(QLatin1Char(':')); }
    bool lacksScenarioFile() const { return port == QLatin1String("simulated:"); }
    QString scenarioFile() const { return hasScenario() ? port.section(QLatin1Char(':'), 1) : QString(); }

    /// The wrench to work with: the one that is named, else the simulator's own; empty: none.
    QString wrench() const { return serialId.isEmpty() && isSimulated() ? simulatedSerialId : serialId; }
};
