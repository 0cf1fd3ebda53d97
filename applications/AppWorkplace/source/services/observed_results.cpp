#include "observed_results.h"

#include <QStringList>

#include <algorithm>

namespace {

const QString c_prefix = QStringLiteral("RE:F:");

/// Whether the device plugin makes this record of that line: its text up to a zero byte, without the blanks at its
/// ends, cut at each comma.
bool isMadeOf(const QVariantMap& eventData, const QByteArray& line)
{
    static const QStringList keys{QStringLiteral("convertedTorque"), QStringLiteral("direction"),
                                  QStringLiteral("torqueStatus"),    QStringLiteral("snugTorqueAngle"),
                                  QStringLiteral("angleStatus"),     QStringLiteral("readingNumber"),
                                  QStringLiteral("readingStatus")};
    const QString text = QString::fromUtf8(line.constData()).trimmed();
    const QStringList fields = text.mid(c_prefix.size()).split(QLatin1Char(','));
    for (int i = 0; i < keys.size(); ++i) {
        if (eventData.value(keys.at(i)).toString() != fields.value(i)) {
            return false;
        }
    }
    return true;
}

} // namespace

void ObservedResults::add(const QByteArray& line, int chunk)
{
    if (!QString::fromUtf8(line.constData()).trimmed().startsWith(c_prefix)) {
        return;
    }
    m_seen.push_back({line, chunk});
    if (m_seen.size() > c_mostLines) {
        m_seen.pop_front();
    }
}

QByteArray ObservedResults::take(const QVariantMap& eventData)
{
    const int chunk = eventData.value(QStringLiteral("eventCountNo")).toInt();
    const auto found = std::find_if(m_seen.begin(), m_seen.end(), [&](const Seen& seen) {
        return seen.chunk == chunk && isMadeOf(eventData, seen.line);
    });
    if (found == m_seen.end()) {
        return {};
    }
    QByteArray line = found->line;
    m_seen.erase(m_seen.begin(), found + 1);
    return line;
}
