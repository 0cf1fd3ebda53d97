#include "trace_entry.h"

namespace {

constexpr qint64 c_usPerSecond = 1000000;
constexpr int c_secondDecimals = 6;
constexpr char c_directions[] = {'>', '<', '!'}; // as in TraceEntry::Direction

} // namespace

std::optional<TraceEntry> TraceEntry::fromLine(const QByteArray& line)
{
    const int point = line.indexOf('.');
    const int directionAt = point + c_secondDecimals + 2;
    if (point < 1 || line.size() < directionAt + 2 || line.at(directionAt - 1) != ' ' ||
        line.at(directionAt + 1) != ' ') {
        return std::nullopt;
    }
    bool hasSeconds = false;
    bool hasRest = false;
    TraceEntry entry;
    entry.momentUs = line.left(point).toLongLong(&hasSeconds) * c_usPerSecond +
                     line.mid(point + 1, c_secondDecimals).toInt(&hasRest);
    for (const Direction direction : {Direction::Sent, Direction::Arrived, Direction::Remark}) {
        if (hasSeconds && hasRest && line.at(directionAt) == c_directions[int(direction)]) {
            entry.direction = direction;
            entry.text = line.mid(directionAt + 2);
            return entry;
        }
    }
    return std::nullopt;
}

QByteArray TraceEntry::line() const
{
    return seconds() + ' ' + c_directions[int(direction)] + ' ' + text;
}

QByteArray TraceEntry::seconds() const
{
    return QByteArray::number(momentUs / c_usPerSecond) + '.' +
           QByteArray::number(momentUs % c_usPerSecond).rightJustified(c_secondDecimals, '0');
}

QString TraceEntry::shownText() const
{
    if (direction != Direction::Remark || !text.contains('\\')) {
        return QString::fromLatin1(text);
    }
    constexpr int c_hexadecimal = 16;
    constexpr int c_codeLength = 4; // "\x0a"
    QByteArray words;
    for (int i = 0; i < text.size(); ++i) {
        bool isCode = false;
        const auto code = static_cast<char>(text.mid(i + 2, 2).toInt(&isCode, c_hexadecimal));
        if (isCode && text.mid(i, 2) == "\\x") {
            words += code;
            i += c_codeLength - 1;
        } else {
            words += text.at(i);
        }
    }
    return QString::fromUtf8(words);
}
