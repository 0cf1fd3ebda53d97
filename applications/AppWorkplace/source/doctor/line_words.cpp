#include "line_words.h"

#include <algorithm>

bool line_words::isReadable(const QString& line)
{
    constexpr ushort c_first = 0x20;
    constexpr ushort c_last = 0x7e;
    return !line.isEmpty() && std::all_of(line.cbegin(), line.cend(), [](QChar character) {
        return character.unicode() >= c_first && character.unicode() <= c_last;
    });
}

bool line_words::isOfDongle(const QString& line)
{
    // An error is "ERR:" and a number; a modem says "ERROR".
    for (const QString& word : {c_heard + QLatin1Char(' '), c_dial, c_refused + QLatin1Char(':')}) {
        if (line.startsWith(word)) {
            return isReadable(line);
        }
    }
    return line == c_hangUp || line == c_linkOpen;
}

bool line_words::isForeign(const QString& line)
{
    return isReadable(line) && !isOfDongle(line) && !line.startsWith(c_result) && !line.startsWith(c_answered);
}
