#pragma once

#include <memory>

#include <lib_plugins_management/d_abstract_plugin.h>
#include <lib_utilities/clock.h>

class ISerialPort;
class SerialLine;

/// The serial driver: who it is, its commands, and one line for each instance.
///
/// Properties for the host to show: "connected" (bool: the port is open and the device answers its keep-alive, where it
/// has one), "lineState" ("closed", "open", "lost" or "no answer"), "lineError" (what is wrong and what to do, one
/// sentence; empty while nothing is). For whoever writes its configuration: "settings" (see describeLineSettings()).
class PDriverSerial : public DAbstractPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "workplace.PDriverSerial")

public:
    /// On the machine's ports and its clock.
    explicit PDriverSerial(const QUuid& uuid = QUuid(), QObject* parent = nullptr);
    /// On the given port and clock.
    PDriverSerial(const QUuid& uuid, std::unique_ptr<ISerialPort> port, std::unique_ptr<Clock> clock, QObject* parent);
    ~PDriverSerial() override;

    static QUuid getPluginId();
    static const char* getPluginName();
    static IPlugin::Type getPluginType();

    /// The line of this instance, which owns it.
    SerialLine* line() const { return m_line.get(); }

    void initPluginCommands() override;
    IPlugin* createInstance(const QUuid& uuid) const override;
    const char* pluginSubTypeName() const override;

private:
    void showLineState();

    const std::unique_ptr<Clock> m_clock;
    const std::unique_ptr<SerialLine> m_line; // destroyed first: it uses the clock
};
