#include "serial_device.h"

#include "raw_mode.h"

#include <QFile>

#include <cerrno>
#include <cstring>
#include <utility>

#include <fcntl.h>

SerialDevice::SerialDevice(QString path) : m_path(std::move(path)) {}

bool SerialDevice::open(QString* error)
{
    m_device.reset(::open(QFile::encodeName(m_path).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    if (m_device.isOpen() && makeRaw(m_device.get())) {
        return true;
    }
    *error =
        QStringLiteral("--device %1: cannot open it as a serial device: %2; check the path and that you may use it")
            .arg(m_path, QString::fromLocal8Bit(std::strerror(errno)));
    close();
    return false;
}
