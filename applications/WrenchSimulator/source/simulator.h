#pragma once

#include "console.h"
#include "dongle.h"
#include "line_cutter.h"
#include "line_port.h"
#include "options.h"

#include <QElapsedTimer>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <memory>

/// Ties the dongle to a terminal, the clock, the console and the process's signals.
class Simulator : public QObject, private LineSwitch
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
    QString unplug() override;
    QString replug() override;
    void quit() override;

    qint64 nowUs() const;
    bool openLine(QString* error);
    void onReceived(const QByteArray& bytes);
    void onHungUp();
    void onReplugDue();
    void onConsoleReadable();
    void pump();

    Dongle m_dongle;
    Console m_console;
    LinePort m_port;
    QElapsedTimer m_clock;
    QTimer m_timer;
    QTimer m_replugTimer;
    LineCutter m_consoleCutter{"\n"};
    std::unique_ptr<QSocketNotifier> m_consoleNotifier; ///< none without a console
};
