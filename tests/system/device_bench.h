#pragma once

#include <QStringList>
#include <QTemporaryDir>

#include <memory>

#include "gui/device_model.h"
#include "history/history_store.h"
#include "history/shared_history.h"
#include "line_trace.h"
#include "program_run.h"

/// A device of the window on a line of the test, with a folder of its own for what it keeps.
class DeviceBench
{
public:
    explicit DeviceBench(const QString& port)
        : device(settingsFor(port, m_folder.path()), std::make_shared<SharedHistory>(m_folder.path()))
    {
        QObject::connect(&device, &DeviceModel::stateChanged, &device, [this] { states.append(device.state()); });
    }

    static Settings settingsFor(const QString& port, const QString& folder)
    {
        Settings settings;
        settings.port = port;
        settings.pluginFolder = QStringLiteral(PLUGINS);
        settings.dataFolder = folder;
        settings.traceFile = folder + QStringLiteral("/trace");
        return settings;
    }

    bool waitFor(DeviceModel::State state)
    {
        return waitUntil([&] { return device.state() == state; });
    }
    /// It listens to the wrench.
    bool work()
    {
        device.work(QStringLiteral("2210"));
        return waitFor(DeviceModel::Working);
    }
    bool waitForResults(int count)
    {
        return waitUntil([&] { return device.good() + device.notGood() >= count; });
    }
    /// Nothing of an order runs any more.
    bool waitForOrder()
    {
        return waitUntil([&] { return device.busyText().isEmpty(); });
    }

    QString folder() const { return m_folder.path(); }
    LineTrace trace() const { return LineTrace::fromFile(m_folder.filePath(QStringLiteral("trace"))); }
    /// The frames since so many.
    QStringList framesAfter(int count) const { return trace().sent().mid(count); }
    int frames() const { return trace().sent().size(); }
    /// The dongle hung up as the last thing, and the port was closed.
    bool hasEndedOrderly() const
    {
        return trace().sent().value(frames() - 1) == QLatin1String("ATH") &&
               trace().lastEntry() == QLatin1String("! closed");
    }
    QByteArray report() const
    {
        return QStringLiteral("%1; %2; %3; %4")
            .arg(device.stateText(), device.problemWhat(), device.problemCause(), trace().sent().join(QLatin1Char(' ')))
            .toUtf8();
    }

private:
    QTemporaryDir m_folder;

public:
    DeviceModel device;
    QVector<DeviceModel::State> states; // in their order
};
