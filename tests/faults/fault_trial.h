#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// One thing that the matrix disturbs: a command of the device plugin as `app_workplace run` runs it, or a session.
/// The same for the runs in one process and for those through the real programs.
struct FaultTrial
{
    /// All of them, in the order of the document.
    static const QVector<FaultTrial>& all();

    QString name;              ///< the heading: as it is typed
    QString command;           ///< of the plugin; empty: a session
    QStringList parameters;    ///< of the command, "name=value"
    bool connects = false;     ///< the command runs on a wrench that is connected first, as with --connect
    int limitMs = 0;           ///< of the command; how long a session listens
    int keepAliveMs = 0;       ///< silence after which the driver asks; 0: the driver's default
    double ratePerSecond = 0.; ///< tightenings

    bool isSession() const { return command.isEmpty(); }
    /// The command runs until it is stopped: its limit is no failure.
    bool isEndless() const;

    /// Of wrench_simulator. fault: with its trigger; empty: none.
    QStringList simulatorOptions(const QString& fault) const;

    static constexpr int c_program = 2;              ///< that sessions select
    static constexpr int c_reconnectLimitMs = 15000; ///< of sessions
};

extern const QString c_serialId; ///< of the wrench that is worked with

/// Every kind of fault of the simulator, some with several arguments, without their trigger. "+" behind: from the
/// frame on.
QStringList matrixFaults();
