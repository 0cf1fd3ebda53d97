#include "log_capture.h"

#include <algorithm>
#include <utility>

LogCapture* LogCapture::s_current = nullptr;

LogCapture::LogCapture(std::function<void(const LogMessage&)> onMessage) : m_onMessage(std::move(onMessage))
{
    Q_ASSERT(s_current == nullptr);
    s_current = this;
    m_before = qInstallMessageHandler(&LogCapture::take);
}

LogCapture::~LogCapture()
{
    qInstallMessageHandler(m_before);
    s_current = nullptr;
}

QVector<LogMessage> LogCapture::messages(QtMsgType type) const
{
    QVector<LogMessage> found;
    std::copy_if(m_messages.cbegin(), m_messages.cend(), std::back_inserter(found),
                 [type](const LogMessage& message) { return message.type == type; });
    return found;
}

void LogCapture::take(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    const LogMessage message{type, QString::fromUtf8(context.category), text};
    s_current->m_messages.append(message);
    if (s_current->m_onMessage) {
        s_current->m_onMessage(message);
    }
}
