#include "qt_serial_port.h"

#include <QFileInfo>
#include <QPointer>
#include <QSignalBlocker>

#include <poll.h>
#include <sys/file.h>

#include "line_settings.h"
#include "port_problem.h"

namespace {

// While a delivery holds the event loop up, more than this stays with the system, which then stops the sender where
// flow control allows it.
constexpr int c_readBufferBytes = 1024 * 1024;

} // namespace

QtSerialPort::QtSerialPort(QObject* parent) : QObject(parent), m_port(new QSerialPort)
{
    m_port->setReadBufferSize(c_readBufferBytes);
    connect(m_port.data(), &QSerialPort::readyRead, this, &QtSerialPort::onReadyRead);
    connect(m_port.data(), &QSerialPort::bytesWritten, this, &QtSerialPort::onBytesWritten);
    connect(m_port.data(), &QSerialPort::errorOccurred, this, &QtSerialPort::onError);
}

QtSerialPort::~QtSerialPort()
{
    m_port->disconnect(this);
    m_port->close();
}

void QtSerialPort::setObserver(Observer* observer)
{
    m_observer = observer;
}

QString QtSerialPort::open(const LineSettings& settings)
{
    close();
    m_name = settings.port;
    // By its real path: each name of one port would otherwise have a lock file of its own.
    const QString location = QFileInfo(settings.port).canonicalFilePath();
    if (location.isEmpty()) {
        return port_problem::cannotOpen(m_name, QString());
    }
    m_port->setPortName(location);
    if (!m_port->open(QIODevice::ReadWrite)) {
        return port_problem::cannotOpen(m_name, m_port->errorString());
    }
    if (!isForUsAlone()) {
        m_port->close();
        return port_problem::inUse(m_name);
    }
    const QString unsupported = configure(settings);
    if (!unsupported.isEmpty()) {
        m_port->close();
        return port_problem::unsupported(m_name, unsupported);
    }
    ++m_opening;
    return {};
}

/// The name of the first setting that the port does not have; empty: it has them all. Only an open port tells.
QString QtSerialPort::configure(const LineSettings& settings)
{
    const QSignalBlocker quiet(m_port.data()); // what fails here is the result, not a port that goes away
    if (!m_port->setBaudRate(settings.baudRate)) {
        return QStringLiteral("baudRate");
    }
    if (!m_port->setDataBits(settings.dataBits)) {
        return QStringLiteral("dataBits");
    }
    if (!m_port->setParity(settings.parity)) {
        return QStringLiteral("parity");
    }
    if (!m_port->setStopBits(settings.stopBits)) {
        return QStringLiteral("stopBits");
    }
    return m_port->setFlowControl(settings.flowControl) ? QString() : QStringLiteral("flowControl");
}

bool QtSerialPort::isForUsAlone() const
{
    // QSerialPort's lock file is seen only where /var/lock is shared, and its exclusive mode does not stop root.
    return ::flock(m_port->handle(), LOCK_EX | LOCK_NB) == 0;
}

bool QtSerialPort::isOpen() const
{
    return m_port->isOpen() && !m_isGivingUp;
}

void QtSerialPort::close()
{
    m_isGivingUp = false;
    if (m_port->isOpen()) {
        m_port->close();
    }
}

void QtSerialPort::write(const QByteArray& bytes)
{
    m_port->write(bytes);
    if (takesBytes()) {
        m_port->flush(); // what the system takes now leaves now, not after a turn of the event loop
    }
    if (m_isTelling && m_port->bytesToWrite() == 0) {
        // QSerialPort tells nothing from inside its own telling.
        QMetaObject::invokeMethod(this, &QtSerialPort::onBytesWritten, Qt::QueuedConnection);
    }
}

/// Asked of a line that is held up, flush() reports the error of an adapter that was pulled.
bool QtSerialPort::takesBytes() const
{
    pollfd port = {m_port->handle(), POLLOUT, 0};
    return ::poll(&port, 1, 0) > 0;
}

void QtSerialPort::discardOutput()
{
    m_port->clear(QSerialPort::Output);
}

void QtSerialPort::onReadyRead()
{
    // Again until nothing is left: what arrives while the observer runs an event loop is not announced.
    const QPointer<QtSerialPort> self(this);
    while (!self.isNull() && m_observer != nullptr && m_port->isOpen()) {
        const QByteArray bytes = m_port->readAll();
        if (bytes.isEmpty()) {
            return;
        }
        m_observer->bytesArrived(bytes);
    }
}

void QtSerialPort::onBytesWritten()
{
    if (m_observer == nullptr || !m_port->isOpen() || m_port->bytesToWrite() > 0) {
        return;
    }
    const QPointer<QtSerialPort> self(this); // the observer may let us go
    m_isTelling = true;
    m_observer->bytesLeft();
    if (!self.isNull()) {
        m_isTelling = false;
    }
}

void QtSerialPort::onError(QSerialPort::SerialPortError error)
{
    // An error while opening is told by the result of open().
    if (error == QSerialPort::NoError || error == QSerialPort::TimeoutError || !m_port->isOpen() || m_isGivingUp) {
        return;
    }
    // After a hang-up QSerialPort reports the same error without end and keeps its notifier on, which would take all
    // the processor's time; it may not be closed from inside its own signal. Its error text is a stale one then.
    m_isGivingUp = true;
    const quint64 opening = m_opening;
    QMetaObject::invokeMethod(
        this,
        [this, opening] {
            if (m_isGivingUp && opening == m_opening) {
                giveUp();
            }
        },
        Qt::QueuedConnection);
}

void QtSerialPort::giveUp()
{
    close();
    if (m_observer != nullptr) {
        m_observer->portFailed(port_problem::wentAway(m_name));
    }
}
