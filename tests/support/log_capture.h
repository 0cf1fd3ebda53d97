#pragma once

#include <QString>
#include <QVector>

#include <functional>

struct LogMessage
{
    QtMsgType type;
    QString category;
    QString text;
};

/// Takes all of Qt's messages while it lives, instead of printing them. One at a time.
class LogCapture
{
public:
    /// onMessage: called with each message as it comes; empty: they are only kept.
    explicit LogCapture(std::function<void(const LogMessage&)> onMessage = {});
    ~LogCapture();

    const QVector<LogMessage>& messages() const { return m_messages; }
    QVector<LogMessage> messages(QtMsgType type) const;

private:
    Q_DISABLE_COPY(LogCapture)
    static void take(QtMsgType type, const QMessageLogContext& context, const QString& text);

    static LogCapture* s_current;
    std::function<void(const LogMessage&)> m_onMessage;
    QVector<LogMessage> m_messages;
    QtMessageHandler m_before;
};
