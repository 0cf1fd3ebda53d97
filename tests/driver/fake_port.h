#pragma once

#include <QByteArrayList>

#include "i_serial_port.h"
#include "line_settings.h"

/// A port that exists only in the test, with switches for what goes wrong. What it tells, it tells when it is asked to.
class FakePort : public ISerialPort
{
public:
    // What the test sets.
    QString openProblem; // not empty: open() fails with it

    // What the test looks at.
    QByteArrayList written;
    int openings = 0; // tried
    int discards = 0;
    LineSettings settings;
    bool opened = false;

    void arrive(const QByteArray& bytes) { m_observer->bytesArrived(bytes); }
    void leave() { m_observer->bytesLeft(); }
    void fail(const QString& problem)
    {
        opened = false;
        m_observer->portFailed(problem);
    }
    QByteArray lastWritten() const { return written.isEmpty() ? QByteArray() : written.last(); }

    void setObserver(Observer* observer) override { m_observer = observer; }
    QString open(const LineSettings& given) override
    {
        ++openings;
        settings = given;
        opened = openProblem.isEmpty();
        return openProblem;
    }
    bool isOpen() const override { return opened; }
    void close() override { opened = false; }
    void write(const QByteArray& bytes) override { written.append(bytes); }
    void discardOutput() override { ++discards; }

private:
    Observer* m_observer = nullptr;
};
