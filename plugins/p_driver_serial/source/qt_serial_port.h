#pragma once

#include <QObject>
#include <QScopedPointer>
#include <QSerialPort>

#include "i_serial_port.h"

/// The machine's serial ports, through QSerialPort.
class QtSerialPort : public QObject, public ISerialPort
{
    Q_OBJECT

public:
    explicit QtSerialPort(QObject* parent = nullptr);
    ~QtSerialPort() override;

    void setObserver(Observer* observer) override;
    QString open(const LineSettings& settings) override;
    bool isOpen() const override;
    void close() override;
    void write(const QByteArray& bytes) override;
    void discardOutput() override;

private:
    void onReadyRead();
    void onBytesWritten();
    void onError(QSerialPort::SerialPortError error);
    void giveUp();
    QString configure(const LineSettings& settings);
    bool isForUsAlone() const;
    bool takesBytes() const;

    Observer* m_observer = nullptr;
    // Deleted later: the observer may destroy this object while QSerialPort is emitting.
    const QScopedPointer<QSerialPort, QScopedPointerDeleteLater> m_port;
    QString m_name;            // as configured
    bool m_isGivingUp = false; // an error was reported, the port is going to be closed from the event loop
    bool m_isTelling = false;  // the observer is being told that bytes have left
    quint64 m_opening = 0;     // counts, so that a late giveUp() does not close the next one
};
