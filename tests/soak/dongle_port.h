#pragma once

#include "i_serial_port.h"
#include "line_record.h"
#include "manual_clock.h"
#include "simulated_dongle.h"

#include <QTemporaryDir>

#include <memory>
#include <optional>

/// The driver's port, with the simulated dongle at its other end and no terminal between them. What it tells, it tells
/// from actions of the clock. Nothing is lost on the way but what arrives while the port is closed.
class DonglePort : public ISerialPort, private SimulatedDongle::Line
{
public:
    /// options: of the simulator. Clock and record outlive the port.
    DonglePort(const QStringList& options, ManualClock& clock, LineRecord& record);
    ~DonglePort() override;

    /// The dongle goes on by itself up to now.
    void advance() { m_dongle.advance(m_clock.nowUs()); }
    std::optional<qint64> nextDueUs() const { return m_dongle.nextDueUs(); }
    QString command(const QString& text) { return m_dongle.command(text, m_clock.nowUs()); }
    bool isPlugged() const { return m_dongle.isPlugged(); }
    /// There while the adapter is plugged in, as that of a real one.
    QString file() const { return m_folder.filePath(QStringLiteral("port")); }

    void setObserver(Observer* observer) override { m_observer = observer; }
    QString open(const LineSettings& settings) override;
    bool isOpen() const override { return m_isOpen; }
    void close() override;
    void write(const QByteArray& bytes) override;
    void discardOutput() override {}

private:
    void chunkArrived(const QByteArray& chunk) override;
    void pulled() override;
    void pluggedIn() override;
    /// Does it in a turn of its own, while the port is still open as it is now.
    void later(Clock::Action action);

    ManualClock& m_clock;
    LineRecord& m_record;
    QTemporaryDir m_folder;
    SimulatedDongle m_dongle;
    Observer* m_observer = nullptr;
    bool m_isOpen = false;
    int m_opening = 0; // counts them
    std::shared_ptr<bool> m_isAlive = std::make_shared<bool>(true);
};
