#pragma once

#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>

#include <lib_plugins_management/host/d_order.h>
#include <lib_utilities/clock.h>

#include "../services/line_observer.h"

/// Speaks on the line itself, through the commands of the driver alone: a frame out, lines in, under a limit.
class LineTalk : public QObject
{
    Q_OBJECT

public:
    enum class End {
        Answered,  ///< a line was what was waited for
        Limit,     ///< none was, within the limit
        NotWritten ///< the driver did not take the frame; writeError() says why
    };
    /// Told each line as it comes, without blanks around it. True: that was it. It asks nothing itself.
    using Hearer = std::function<bool(const QString& line)>;
    using Ended = std::function<void(End end)>;

    /// host and clock outlive the talk.
    LineTalk(DHost& host, Clock& clock);
    ~LineTalk() override;

    /// Begins to listen, which opens the line.
    void open(DAbstractPlugin& driver);
    void close();

    /// Sends the frame (CR LF is added) and hears what comes; an empty one: only hears. ended: called once, not
    /// from inside this call, unless another question or cancel() comes before. limitMs: > 0.
    void ask(const QString& frame, int limitMs, const Hearer& hearer, const Ended& ended);
    void cancel();

    /// The lines since the last forget(), the empty ones left out; of very many the first.
    const QStringList& lines() const { return m_lines; }
    /// Something has come since then, a whole line or not.
    bool hasHeard() const { return m_observer.heardBytes() > m_forgottenBytes; }
    void forget();
    /// The line has been away: what comes now is not the rest of what came before.
    void forgetPartialLine() { m_observer.forgetPartialLine(); }

    QString writeError() const { return m_writeError; }
    /// Tightening results among the lines, ever.
    int resultsHeard() const { return m_resultsHeard; }
    /// A frame was sent, ever.
    bool hasSpoken() const { return m_hasSpoken; }

Q_SIGNALS:
    void sigWrenchHeard(const QString& address, const QString& serialId, const QString& signalStrength);

private:
    void write(const QString& frame);
    void hear(const QByteArray& bytes);
    void end(End how);

    DHost& m_host;
    Clock& m_clock;
    DAbstractPlugin* m_driver = nullptr;
    LineObserver m_observer;
    std::unique_ptr<DOrder> m_write;
    Clock::TimerId m_timer = 0;
    Hearer m_hearer;
    Ended m_ended;
    QStringList m_lines;
    int m_resultsHeard = 0;
    qint64 m_forgottenBytes = 0;
    QString m_writeError;
    bool m_hasSpoken = false;
};
