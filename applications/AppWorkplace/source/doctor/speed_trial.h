#pragma once

#include <QJsonValue>
#include <QObject>
#include <QStringList>

#include <memory>

#include <lib_plugins_management/host/d_order.h>

struct DoctorBench;

/// Calls the dongle at the common speeds other than the configured one, until somebody answers readable text. The
/// configuration of the driver is as before when it ends.
class SpeedTrial : public QObject
{
    Q_OBJECT

public:
    /// The bench outlives the trial.
    explicit SpeedTrial(DoctorBench& bench);
    ~SpeedTrial() override;

    void start();
    void stop();
    /// As people read them: "9600, 19200, …".
    static QString speeds();

Q_SIGNALS:
    /// baud: 0: nobody answers at any of them. lines: what was said.
    void sigEnded(int baud, const QStringList& lines);

private:
    void tryNext();
    void setSpeed(const QJsonValue& baud, void (SpeedTrial::*then)());
    void call();
    void tellEnd();

    DoctorBench& m_bench;
    const QJsonValue m_configured;
    std::unique_ptr<DOrder> m_closing;
    int m_tried = 0; // how many
    int m_found = 0;
    QStringList m_lines;
    bool m_isRunning = false;
};
