#include "transcript_recorder.h"

#include <QRegularExpression>
#include <QTimer>

#include "log_capture.h"
#include "transcript.h"

namespace {
const QString c_frame = QStringLiteral("host>");
const QString c_awaitedFrame = QStringLiteral("host>?");

QString column(const QString& word)
{
    return word.size() < TranscriptStep::c_textColumn ? word.leftJustified(TranscriptStep::c_textColumn)
                                                      : word + QLatin1Char(' ');
}
} // namespace

TranscriptRecorder::TranscriptRecorder(DAbstractPlugin& plugin) : m_player(plugin, TranscriptPlayer::c_whole) {}

QString TranscriptRecorder::add(const QString& word, const QString& text)
{
    m_lines.append((column(word) + text).trimmed());
    QString complaint = perform({0, word, text});
    takeHappened();
    if (!complaint.isEmpty()) {
        return complaint;
    }
    return m_player.m_driverWaiting.isEmpty() ? QString()
                                              : add(QStringLiteral("driver<"), QStringLiteral("cmd_success=true"));
}

QString TranscriptRecorder::perform(const TranscriptStep& step)
{
    const LogCapture capture([this](const LogMessage& message) { m_player.noteMessage(message); });
    if (step.isArrival()) {
        m_player.m_arrived += step.arrival();
        return m_player.deliverArrived();
    }
    const TranscriptPlayer::Action action = TranscriptPlayer::actionOf(step.word);
    if (action == nullptr) {
        return QStringLiteral("\"%1\" is no step of others").arg(step.word);
    }
    QString complaint = (m_player.*action)(step);
    m_player.settle();
    return complaint;
}

bool TranscriptRecorder::isRunning() const
{
    const QVector<OrderEvent>& events = m_player.m_order.events();
    return !events.isEmpty() && events.last().kind != OrderEvent::Kind::End;
}

int TranscriptRecorder::timerMs() const
{
    const QTimer* timer = m_player.commandTimer();
    return timer != nullptr && timer->isActive() ? timer->interval() : 0;
}

QStringList TranscriptRecorder::takeFrames()
{
    return std::exchange(m_frames, {});
}

void TranscriptRecorder::takeHappened()
{
    // "#" is the number of the reply that is being read, however it is cut.
    static const QRegularExpression number(QStringLiteral("(\"eventCountNo\":)\\d+"));
    const QStringList happened = std::exchange(m_player.m_happened, {});
    for (QString line : happened) {
        const QString word = line.section(QLatin1Char(' '), 0, 0);
        if (word == c_frame || word == c_awaitedFrame) {
            m_frames.append(line.mid(TranscriptStep::c_textColumn));
        }
        m_lines.append(line.replace(number, QStringLiteral("\\1#")));
    }
}
