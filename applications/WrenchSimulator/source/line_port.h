#pragma once

#include "line_speed.h"
#include "terminal.h"

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>

#include <memory>

/// Bytes to and from a terminal with the event loop. Holds at most one chunk that the terminal has not taken yet.
class LinePort : public QObject
{
    Q_OBJECT

public:
    LinePort(std::unique_ptr<Terminal> terminal, LineSpeed speed, QObject* parent = nullptr);
    ~LinePort() override;

    bool open(QString* error);
    void close();
    bool isOpen() const { return m_terminal->descriptor() >= 0; }
    bool hasReader() { return m_terminal->hasReader(); }
    QString path() const { return m_terminal->path(); }

    /// False while the terminal is full: write nothing then, writable() will follow.
    bool isWritable() const { return m_rest.isEmpty(); }

    /// Writes the chunk, at once as far as the terminal takes it; or forgets it and says unread().
    void write(const QByteArray& chunk);

Q_SIGNALS:
    void received(const QByteArray& bytes);
    void writable();

    /// Somebody is there to read.
    void heard();

    /// Nobody is there to read: what waits to be written is not for whoever comes next.
    void unread();

    /// The line went away by itself; it is closed already.
    void hungUp();

private:
    std::unique_ptr<QSocketNotifier> makeNotifier(int descriptor, QSocketNotifier::Type type, void (LinePort::*slot)());
    void readAll();
    void readersChanged();
    void writeRest();
    bool forgetUnread();
    void hangUp();

    std::unique_ptr<Terminal> m_terminal;
    const LineSpeed m_speed;
    std::unique_ptr<QSocketNotifier> m_readNotifier;
    std::unique_ptr<QSocketNotifier> m_writeNotifier;
    std::unique_ptr<QSocketNotifier> m_readerNotifier;
    QByteArray m_rest;
};
