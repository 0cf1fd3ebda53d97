#include "line_end.h"

#include <utility>

#include <lib_plugins_management/host/d_host.h>

#include "line_observer.h"

namespace {

constexpr int c_limitMs = 2000; // of each command
constexpr int c_writeTimeoutMs = 500;
const QByteArray c_hangUpFrame = QByteArrayLiteral("ATH\r\n");
const QByteArray c_hungUp = QByteArrayLiteral("ATH");
const QString c_success = QStringLiteral("cmd_success");

} // namespace

LineEnd::LineEnd(const LinkedDevice& device, LineObserver* observer, QObject* parent)
    : QObject(parent), m_device(device), m_observer(observer)
{}

LineEnd::~LineEnd()
{
    m_device.clock.cancel(m_limit);
}

// The driver keeps the link alive as long as it lives; who uses the line next may have none.
void LineEnd::hangUpAndClose()
{
    run(QStringLiteral("setKeepAliveFonction"),
        {{QStringLiteral("frame"), QString()}, {QStringLiteral("responseFrame"), QString()}}, &LineEnd::hangUp);
}

void LineEnd::hangUp()
{
    if (m_observer != nullptr) {
        connect(m_observer, &LineObserver::sigLineHeard, this, [this](const QByteArray& line) {
            m_isAnswered = m_isAnswered || line.trimmed() == c_hungUp;
            if (m_isAnswered && m_limit != 0) {
                answered();
            }
        });
    }
    run(QStringLiteral("write"),
        {{QStringLiteral("frame"), c_hangUpFrame}, {QStringLiteral("timeout"), c_writeTimeoutMs}},
        &LineEnd::awaitAnswer);
}

void LineEnd::awaitAnswer()
{
    if (m_observer == nullptr || m_isAnswered || !m_isFrameTaken) {
        close();
    } else {
        m_limit = m_device.clock.callAfter(c_answerLimitMs, [this] { answered(); });
    }
}

void LineEnd::answered()
{
    m_device.clock.cancel(std::exchange(m_limit, 0));
    close();
}

void LineEnd::close()
{
    run(QStringLiteral("closeConnection"), {}, &LineEnd::sigClosed);
}

void LineEnd::run(const QString& driverCommand, const Parameters& parameters, void (LineEnd::*then)())
{
    m_run = m_device.host.createOrder(m_device.driver, driverCommand, parameters);
    if (m_run == nullptr) { // a driver without it has nothing to end there
        (this->*then)();
        return;
    }
    connect(m_run.get(), &DOrder::sigFinished, this, [this, then] {
        m_isFrameTaken = m_run->results().value(c_success).toBool();
        m_run.release()->deleteLater();
        (this->*then)();
    });
    m_run->start(c_limitMs);
}
