#pragma once

#include <QObject>
#include <QProcess>
#include <QString>

#include "settings.h"

/// A wrench simulator of our own: a process that is started for one command and ends with it, whichever way that ends.
class SimulatorProcess : public QObject
{
    Q_OBJECT

public:
    explicit SimulatorProcess(QObject* parent = nullptr);
    ~SimulatorProcess() override;

    /// Plays the scenario of the settings; without one there is one wrench, of their serial number.
    void start(const Settings& settings);

    /// What it has said against its arguments; empty: nothing.
    QString refusal() const;

    /// Where it is looked for: beside this program.
    static QString program();

Q_SIGNALS:
    /// The simulated line is there, on that port.
    void sigReady(const QString& port);
    /// It could not start, or has ended before its time. The line is gone then.
    void sigFailed(const QString& cause);

private:
    void readReady();

    QProcess m_process;
    QString m_link;      // the name of the line that lasts; empty: its own one does. The simulator removes it
    QString m_lastWords; // the last line it wrote on standard error
    bool m_isReady = false;
};
