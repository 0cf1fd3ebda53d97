#pragma once

#include "file_descriptor.h"
#include "terminal.h"

/// A pseudo-terminal: its master is the simulator's end, its slave is what a program under test opens as a serial port.
///
/// The slave is held open here too, so that the master never reports a hang-up (which would have to be polled) when the
/// other side closes. Who comes and leaves is seen by watching the file; when the last one has left, the terminal
/// becomes what an idle serial port is: nothing unread in it, raw, free for the next one.
class PseudoTerminal : public Terminal
{
public:
    /// linkPath: a symbolic link to the slave, there while the terminal is open; empty: none.
    explicit PseudoTerminal(QString linkPath);
    ~PseudoTerminal() override;

    bool open(QString* error) override;
    void close() override;
    int descriptor() const override { return m_master.get(); }
    QString path() const override { return m_path; }
    int readerWatch() const override { return m_notify.get(); }
    bool hasReader() override;

private:
    bool openSlave();
    bool watchSlave();
    bool isOpenElsewhere();
    void becomeIdle();
    bool makeLink(QString* error);
    void removeLink();

    QString m_linkPath;
    QString m_path;
    FileDescriptor m_master;
    FileDescriptor m_slave;
    FileDescriptor m_notify;
    int m_watch = -1; ///< in m_notify, of the slave
    bool m_hasReader = false;
};
