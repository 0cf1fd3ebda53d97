#pragma once

#include <QObject>
#include <QTimer>

/// Tells the service manager how this program is, when it was started as a service that is to tell (systemd's
/// Type=notify and WatchdogSec); otherwise nothing happens. The protocol is a datagram of lines to the socket that
/// NOTIFY_SOCKET names: small and stable enough to speak it without a library that every user would have to install.
class ServiceNotifier : public QObject
{
    Q_OBJECT

public:
    /// Takes NOTIFY_SOCKET and the watchdog's interval out of the environment: children are no services.
    explicit ServiceNotifier(QObject* parent = nullptr);

    /// state: "READY=1", lines parted by \n.
    void tell(const QByteArray& state) const;
    /// A line for people. Control characters are left out.
    void tellStatus(const QString& text) const;

    /// From now on the watchdog hears from us twice in its interval, as long as the event loop runs.
    void startWatchdog();
    /// No longer; the manager ends a service that it does not hear of.
    void stopWatchdog() { m_watchdog.stop(); }

private:
    QByteArray m_socket; ///< empty: nobody wants to know
    QTimer m_watchdog;
};
