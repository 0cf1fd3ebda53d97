#pragma once

#include <QObject>

#include "service_notifier.h"
#include "session.h"

/// Tells the service manager of a session: ready when it listens, what it does, alive as long as it is not ending,
/// and that it ends. What hangs is not alive: neither the event loop nor an end that does not come to its end.
class SessionService : public QObject
{
    Q_OBJECT

public:
    /// The session outlives this.
    explicit SessionService(const Session& session, QObject* parent = nullptr);

    /// The session has been told to end.
    void tellStopping();

private:
    void stepStarted(Session::Step step);
    void lineErrorChanged(const QString& error);

    ServiceNotifier m_notifier;
    int m_results = 0;
    bool m_isReady = false;
    bool m_isStopping = false;
};
