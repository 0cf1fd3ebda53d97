#pragma once

#include "scenario.h"
#include "simulation.h"

#include <QStringList>

/// A simulation on a line that notes what is written and when. Time passes only when it is told to.
class SimulatedTalk : private SimulatedLine
{
public:
    explicit SimulatedTalk(const Scenario& scenario);

    void send(const QByteArray& frame) { simulation.receive(frame + "\r\n", nowUs); }
    /// In steps of so many milliseconds: how often the simulation is looked at must change nothing.
    void pass(int ms, int stepMs = 1);

    /// All bytes until now, however they came.
    QByteArray bytes() const;
    /// The lines that have come since the last call.
    QStringList takeLines();

    QStringList log; ///< "12000: OK\r\n" for what was written after 12 ms; "! closed", "! open"
    QStringList notes;
    bool isPluggedIn = true;
    bool hasQuit = false;
    bool takesBytes = true;
    qint64 nowUs = 0;
    Simulation simulation;

private:
    bool isOpen() const override { return isPluggedIn; }
    QString open() override;
    void close() override;
    bool isWritable() const override { return takesBytes; }
    void write(const QByteArray& chunk, qint64 atUs) override;
    void quit() override { hasQuit = true; }

    QByteArray m_bytes;
    int m_taken = 0;
};
