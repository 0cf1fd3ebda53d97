#pragma once

#include <QByteArray>
#include <QString>

struct LineSettings;

/// A serial port as the line sees it. One thread; nothing here blocks.
class ISerialPort
{
public:
    /// Told what happens at the open port. Never called from inside a call of the port, and none of these while another
    /// of them has not returned. Each may close the port or destroy it.
    class Observer
    {
    public:
        /// Everything that has arrived by now, in one piece, never empty.
        virtual void bytesArrived(const QByteArray& bytes) = 0;
        /// All bytes that were given to write() have left.
        virtual void bytesLeft() = 0;
        /// The port has gone away and has closed itself. problem: one sentence.
        virtual void portFailed(const QString& problem) = 0;

    protected:
        ~Observer() = default;
    };

    virtual ~ISerialPort() = default;

    /// The observer outlives the port or is taken away by null.
    virtual void setObserver(Observer* observer) = 0;
    /// Empty: it is open, for nobody else. Otherwise one sentence: the port, the cause and what to do.
    virtual QString open(const LineSettings& settings) = 0;
    virtual bool isOpen() const = 0;
    /// Closing a closed port is no error.
    virtual void close() = 0;
    /// Starts to write; bytesLeft() or portFailed() follows. The port is open and has nothing else to write.
    virtual void write(const QByteArray& bytes) = 0;
    /// Forgets what has not left yet; bytesLeft() does not come for it any more.
    virtual void discardOutput() = 0;
};
