#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QVariant>

/// Makes lines of the driver's replies: drops a reply that is delivered twice, keeps what has arrived, cuts it at CR LF
/// and trims each line. A member of every command that listens, which says at its declaration what it needs:
///
///     LineReceiver m_receiver{LineReceiver::Repeats::Dropped, LineReceiver::Content::Text};
///
/// The cost is linear in what arrives, in chunks of whatever size, with line ends or without: nothing is looked at
/// twice, and what has been consumed is dropped once a chunk. What is left of a line stays until its end arrives.
class LineReceiver
{
public:
    /// A reply whose "number" is that of the one before.
    enum class Repeats { Dropped, Accepted };
    /// How "frame" is read. Text: each chunk is converted by itself, as QVariant does it. Bytes: each line is
    /// converted from UTF-8 up to its first zero byte, so that a character may be split between two chunks.
    enum class Content { Text, Bytes };

    LineReceiver(Repeats repeats, Content content) : m_repeats(repeats), m_content(content) {}

    /// Takes a reply in and hands each complete line, in order, to the handler: bool(const QString& line).
    /// The handler returns true to go on and false when the run has ended; then command and receiver may be gone, and
    /// neither they nor the rest of the text are touched. It may clear the buffer and start the run again.
    template <class Handler>
    void feed(const QMap<QString, QVariant>& reply, Handler&& handler)
    {
        if (!takeIn(reply)) {
            return;
        }
        QString line;
        while (takeLine(line)) {
            if (!handler(line)) {
                return;
            }
        }
        dropConsumed();
    }

    /// "number" of the last reply taken in; c_noNumber before the first. Without repeat filter always c_noNumber.
    int lastNumber() const { return m_lastNumber; }

    /// Forgets what has arrived of a line.
    void clearBuffer();

    /// The next reply is taken in whatever its number, as after construction.
    void forgetNumber() { m_lastNumber = c_noNumber; }

    static constexpr int c_noNumber = -1;

private:
    /// What has arrived, and how far it has been looked at. Text: QString or QByteArray.
    template <class Text>
    struct Buffer
    {
        Text text;
        int consumed = 0; // characters of finished lines, at the front
        int searched = 0; // no line ends before here

        /// Steps over the next line and tells where it lies; false when none is complete.
        bool takeLine(int& begin, int& size);
        void dropConsumed();
    };

    bool takeIn(const QMap<QString, QVariant>& reply);
    bool takeLine(QString& line);
    void dropConsumed();

    Repeats m_repeats;
    Content m_content;
    int m_lastNumber = c_noNumber;
    Buffer<QString> m_text;     // used with Content::Text
    Buffer<QByteArray> m_bytes; // used with Content::Bytes
};
