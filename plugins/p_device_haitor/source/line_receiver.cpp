#include "line_receiver.h"

#include "names.h"

namespace {

// One spelling for the characters of both kinds of buffer.
QChar newLineIn(const QString&)
{
    return QLatin1Char('\n');
}

char newLineIn(const QByteArray&)
{
    return '\n';
}

} // namespace

// Looking for the line feed and then at the character before it needs no care for a pair that is split between chunks.
template <class Text>
bool LineReceiver::Buffer<Text>::takeLine(int& begin, int& size)
{
    for (;;) {
        const int lineFeed = text.indexOf(newLineIn(text), searched);
        if (lineFeed < 0) {
            searched = text.size();
            return false;
        }
        searched = lineFeed + 1;
        const int carriageReturn = lineFeed - 1;
        if (carriageReturn >= consumed && text.at(carriageReturn) == QLatin1Char('\r')) {
            begin = consumed;
            size = carriageReturn - consumed;
            consumed = searched;
            return true;
        }
    }
}

template <class Text>
void LineReceiver::Buffer<Text>::dropConsumed()
{
    if (consumed > 0) {
        // A copy of the rest instead of a removal: the chunk's memory goes with it, and an empty buffer shares the
        // next.
        text = consumed == text.size() ? Text() : text.mid(consumed);
        searched -= consumed;
        consumed = 0;
    }
}

bool LineReceiver::takeIn(const QMap<QString, QVariant>& reply)
{
    if (m_repeats == Repeats::Dropped) {
        const int number = reply.value(keys::c_number).toInt();
        if (number == m_lastNumber) {
            return false;
        }
        m_lastNumber = number;
    }
    const QVariant chunk = reply.value(keys::c_frame);
    if (m_content == Content::Bytes) {
        m_bytes.text += chunk.toByteArray();
    } else {
        m_text.text += chunk.toString();
    }
    return true;
}

bool LineReceiver::takeLine(QString& line)
{
    int begin = 0;
    int size = 0;
    if (m_content == Content::Bytes) {
        if (!m_bytes.takeLine(begin, size)) {
            return false;
        }
        const char* bytes = m_bytes.text.constData() + begin;
        line = QString::fromUtf8(bytes, int(qstrnlen(bytes, uint(size)))).trimmed();
        return true;
    }
    if (!m_text.takeLine(begin, size)) {
        return false;
    }
    line = QStringView(m_text.text).mid(begin, size).trimmed().toString();
    return true;
}

void LineReceiver::dropConsumed()
{
    m_text.dropConsumed();
    m_bytes.dropConsumed();
}

void LineReceiver::clearBuffer()
{
    m_text = {};
    m_bytes = {};
}
