#include "line_observer.h"

#include <QStringList>

#include <utility>

#include <lib_plugins_management/host/d_host.h>

namespace {

// A line that is longer than anything a dongle or a wrench says is noise, and is not kept.
constexpr int c_longestLine = 4096;

// "RESP <address> <model> <serial number> <signal strength>"
const QString c_heardPrefix = QStringLiteral("RESP");
constexpr int c_heardFields = 5;
constexpr int c_addressField = 1;
constexpr int c_serialField = 3;
constexpr int c_strengthField = 4;

const QString c_refusalPrefix = QStringLiteral("ERR");

} // namespace

LineObserver::LineObserver(QObject* parent) : QObject(parent) {}

void LineObserver::start(DHost& host, DAbstractPlugin& driver)
{
    m_partialLine.clear();
    m_listener = host.createOrder(driver, QStringLiteral("listenEventsData"), {{QStringLiteral("subscription"), true}});
    if (m_listener != nullptr) {
        connect(m_listener.get(), &DOrder::sigResultsPublished, this, [this](const QMap<QString, QVariant>& values) {
            receive(values.value(QStringLiteral("frame")).toByteArray(),
                    values.value(QStringLiteral("number")).toInt());
        });
        m_listener->start();
    }
}

void LineObserver::stop()
{
    if (DOrder* listener = m_listener.release()) {
        listener->disconnect(this);
        listener->stop();
        listener->deleteLater(); // it may be telling us of a line
    }
}

QString LineObserver::refusalOr(const QString& otherwise) const
{
    return m_lastRefusal.isEmpty() ? otherwise : tr("the line said \"%1\"").arg(m_lastRefusal);
}

void LineObserver::forgetPartialLine()
{
    m_partialLine.clear();
    m_lastByte = '\0';
    m_isTooLong = false;
}

void LineObserver::receive(const QByteArray& bytes, int chunk)
{
    m_heardBytes += bytes.size();
    int start = 0;
    for (int end = bytes.indexOf('\n'); end >= 0; end = bytes.indexOf('\n', end + 1)) {
        if ((end > 0 ? bytes.at(end - 1) : m_lastByte) != '\r') {
            continue; // it belongs to the line
        }
        keep(bytes.constData() + start, end - start);
        start = end + 1;
        const QByteArray line = std::exchange(m_partialLine, {});
        if (!std::exchange(m_isTooLong, false)) {
            takeLine(line, chunk);
        }
    }
    keep(bytes.constData() + start, bytes.size() - start);
    m_lastByte = bytes.isEmpty() ? m_lastByte : bytes.back();
    Q_EMIT sigChunkHeard(chunk);
}

void LineObserver::keep(const char* bytes, int size)
{
    m_isTooLong = m_isTooLong || m_partialLine.size() + size > c_longestLine;
    if (!m_isTooLong) {
        m_partialLine.append(bytes, size);
    }
}

void LineObserver::takeLine(const QByteArray& bytes, int chunk)
{
    const QString line = QString::fromUtf8(bytes).trimmed();
    if (line.startsWith(c_refusalPrefix)) {
        m_lastRefusal = line;
    } else if (line.startsWith(c_heardPrefix)) {
        const QStringList fields = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        if (fields.size() >= c_heardFields) {
            Q_EMIT sigWrenchHeard(fields.at(c_addressField), fields.at(c_serialField), fields.at(c_strengthField));
        }
    }
    Q_EMIT sigLineHeard(bytes.endsWith('\r') ? bytes.chopped(1) : bytes, chunk);
}
