#pragma once

#include "file_descriptor.h"
#include "terminal.h"

/// A serial device that is there already, as one end of a null-modem cable.
class SerialDevice : public Terminal
{
public:
    explicit SerialDevice(QString path);

    bool open(QString* error) override;
    void close() override { m_device.reset(); }
    int descriptor() const override { return m_device.get(); }
    QString path() const override { return m_path; }
    int readerWatch() const override { return -1; }
    bool hasReader() override { return m_device.isOpen(); }

private:
    QString m_path;
    FileDescriptor m_device;
};
