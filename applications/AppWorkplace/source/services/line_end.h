#pragma once

#include <QMap>
#include <QObject>
#include <QVariant>

#include <memory>

#include <lib_plugins_management/host/d_order.h>
#include <lib_utilities/clock.h>

#include "linked_device.h"

class LineObserver;

/// Ends the use of a line: the link is not kept alive any more, the dongle hangs up, the port is closed. What the
/// driver cannot do any more is given up after two seconds, so that the end always comes.
class LineEnd : public QObject
{
    Q_OBJECT

public:
    static constexpr int c_answerLimitMs = 1000; ///< for the dongle to say that it has hung up

    /// observer: listens to the line and outlives the object; null: none.
    explicit LineEnd(const LinkedDevice& device, LineObserver* observer = nullptr, QObject* parent = nullptr);
    ~LineEnd() override;

    /// With an observer the port is closed when the dongle has answered, or after the limit: what is on its way until
    /// then still arrives.
    void hangUpAndClose();
    /// For a line that nobody was called on.
    void close();

Q_SIGNALS:
    void sigClosed();

private:
    using Parameters = QMap<QString, QVariant>;
    void run(const QString& driverCommand, const Parameters& parameters, void (LineEnd::*then)());
    void hangUp();
    void awaitAnswer();
    void answered();

    const LinkedDevice m_device;
    LineObserver* const m_observer;
    std::unique_ptr<DOrder> m_run;
    bool m_isFrameTaken = false; // the driver has sent it
    bool m_isAnswered = false;
    Clock::TimerId m_limit = 0; // of the answer; 0: it is not waited for
};
