#pragma once

#include "line_port.h"
#include "options.h"
#include "replayer.h"
#include "trace_reader.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

/// Ties a replayer to a terminal and the clock. When all of the trace has been played and the other side has closed
/// the line, the program is asked to end.
class ReplaySimulator : public QObject
{
    Q_OBJECT

public:
    /// trace: checked, and outlives the simulator.
    ReplaySimulator(const Options& options, TraceReader& trace, QObject* parent = nullptr);
    ~ReplaySimulator() override;

    /// Opens the line and says "ready PATH" on standard output.
    bool start(QString* error);

    /// Tells how it went on standard error. 0: all was played, and the host said what it says in the trace; 1: not so.
    int finish();

private:
    qint64 nowUs() const;
    void onReceived(const QByteArray& bytes);
    bool checkReader();
    void pump();

    Replayer m_replayer;
    LinePort m_port;
    QElapsedTimer m_clock;
    QTimer m_timer;
};
