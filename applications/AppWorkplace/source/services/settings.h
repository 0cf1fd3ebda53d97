#pragma once

#include <QJsonObject>
#include <QString>

/// What the workplace is to use, from the command line and the configuration file.
struct Settings
{
    QString port = QStringLiteral("simulated"); ///< a device file, or "simulated": a simulator of our own
    QString serialId;                           ///< of the wrench; empty: not said
    QString pluginFolder;                       ///< empty: the one that belongs to this program
    QString dataFolder;                         ///< empty: this user's application data
    QString traceFile;                          ///< "-": standard error; empty: no trace
    QJsonObject driver;                         ///< settings of the driver plugin: "baudRate", "parity", …

    bool isSimulated() const { return port == QLatin1String("simulated"); }

    /// The wrench to work with: the one that is named, else the simulator's own; empty: none.
    QString wrench() const { return serialId.isEmpty() && isSimulated() ? QStringLiteral("2210") : serialId; }
};
