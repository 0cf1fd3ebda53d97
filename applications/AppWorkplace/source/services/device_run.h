#pragma once

#include <QMap>
#include <QObject>
#include <QVariant>

#include <functional>
#include <memory>

#include <lib_plugins_management/host/d_order.h>

#include "linked_device.h"

class LineObserver;

/// Runs commands of a device, one after the other, and says in words what kept one from its end.
class DeviceRun : public QObject
{
    Q_OBJECT

public:
    using Results = QMap<QString, QVariant>;
    using Continuation = std::function<void(const Results& results)>;

    /// The observer listens to the same line, and outlives the object.
    DeviceRun(const LinkedDevice& device, const LineObserver& observer, QObject* parent = nullptr);
    ~DeviceRun() override;

    /// then: called with the results when the command has ended by itself; it may start the next one. limitMs: > 0.
    void start(const QString& command, const Results& parameters, int limitMs, Continuation then);
    /// Ends what runs; nothing more is told of it.
    void stop();
    bool isRunning() const { return m_order != nullptr; }

    /// In words, that a limit of so many ms has been reached, and what the line has said till then.
    QString limitReached(int limitMs) const;

Q_SIGNALS:
    /// It has not ended within its limit.
    void sigFailed(const QString& cause);
    /// The device plugin does not run that command.
    void sigUnusable(const QString& cause);

private:
    void ended(const DOrder& order, int limitMs, const Continuation& then);

    const LinkedDevice m_device;
    const LineObserver& m_observer;
    std::unique_ptr<DOrder> m_order;
};
