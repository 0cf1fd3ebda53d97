#pragma once

#include "line_cutter.h"
#include "line_port.h"
#include "options.h"
#include "simulation.h"

#include <QElapsedTimer>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <memory>

/// Ties a simulation to a terminal, the clock, the console and the process's signals.
class Simulator : public QObject, private SimulatedLine
{
    Q_OBJECT

public:
    explicit Simulator(const Options& options, QObject* parent = nullptr);
    ~Simulator() override;

    /// Opens the line and says "ready PATH" on standard output.
    bool start(QString* error);

    /// One tightening of the linked wrench, else of the first one.
    void tightenOnce();

private:
    bool isOpen() const override { return m_port.isOpen(); }
    QString open() override;
    void close() override { m_port.close(); }
    bool isWritable() const override { return m_port.isWritable(); }
    void write(const QByteArray& chunk, qint64 atUs) override;
    void quit() override;

    qint64 nowUs() const;
    void onReceived(const QByteArray& bytes);
    void onHungUp();
    void onConsoleReadable();
    void pump();

    const double m_speed;
    LinePort m_port;
    Simulation m_simulation;
    QElapsedTimer m_clock;
    QTimer m_timer;
    LineCutter m_consoleCutter{"\n"};
    std::unique_ptr<QSocketNotifier> m_consoleNotifier; ///< none without a console
};
