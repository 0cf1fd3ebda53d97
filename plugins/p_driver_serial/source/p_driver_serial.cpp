#include "p_driver_serial.h"

#include <lib_utilities/system_clock.h>
#include <lib_utilities/utilities.h>

#include "d_cmd_close_connection.h"
#include "d_cmd_listen_events_data.h"
#include "d_cmd_listen_trace.h"
#include "d_cmd_set_keep_alive_fonction.h"
#include "d_cmd_set_trace.h"
#include "d_cmd_write.h"
#include "line_settings.h"
#include "qt_serial_port.h"
#include "serial_line.h"

namespace {

constexpr IPlugin::Type c_pluginType = 0x44726976; // "Driv"

QString stateText(SerialLine::State state)
{
    switch (state) {
    case SerialLine::State::Closed:
        return QStringLiteral("closed");
    case SerialLine::State::Open:
        return QStringLiteral("open");
    case SerialLine::State::Lost:
        return QStringLiteral("lost");
    case SerialLine::State::NoAnswer:
        return QStringLiteral("no answer");
    }
    Q_UNREACHABLE();
}

} // namespace

PDriverSerial::PDriverSerial(const QUuid& uuid, QObject* parent)
    : PDriverSerial(uuid, std::make_unique<QtSerialPort>(), std::make_unique<SystemClock>(), parent)
{}

PDriverSerial::PDriverSerial(const QUuid& uuid, std::unique_ptr<ISerialPort> port, std::unique_ptr<Clock> clock,
                             QObject* parent)
    : DAbstractPlugin(getPluginId(), getPluginName(), getPluginType(),
                      versionFromString(QStringLiteral("1.0"), nullptr, QLatin1Char('.')), uuid, parent, false)
    , m_clock(std::move(clock))
    , m_line(std::make_unique<SerialLine>(std::move(port), *m_clock, [this] {
        return readLineSettings([this](const QString& key) { return getInPluginConfig(key); });
    }))
{
    setProperty(QStringLiteral("settings"), describeLineSettings(), false);
    connect(m_line.get(), &SerialLine::changed, this, &PDriverSerial::showLineState);
    showLineState();
}

PDriverSerial::~PDriverSerial() = default;

QUuid PDriverSerial::getPluginId()
{
    return QUuid(QStringLiteral("{6d1f0f0e-5a3b-4c38-9c5e-2f9f1c7a84d1}"));
}

const char* PDriverSerial::getPluginName()
{
    return "Plugin Driver Serial";
}

IPlugin::Type PDriverSerial::getPluginType()
{
    return c_pluginType;
}

void PDriverSerial::initPluginCommands()
{
    initAbstractCommands();
    declareInstructionCommand(new DCmdWrite({}, m_line.get(), this));
    declareInstructionCommand(new DCmdListenEventsData({}, m_line.get(), this));
    declareInstructionCommand(new DCmdCloseConnection({}, m_line.get(), this));
    declareInstructionCommand(new DCmdSetKeepAliveFonction({}, m_line.get(), this));
    declareInstructionCommand(new DCmdSetTrace({}, m_line.get(), this));
    declareInstructionCommand(new DCmdListenTrace({}, m_line.get(), this));
    Q_EMIT sigCommandsInitDone(objectUuid(), commandNames());
}

IPlugin* PDriverSerial::createInstance(const QUuid& uuid) const
{
    return new PDriverSerial(uuid);
}

const char* PDriverSerial::pluginSubTypeName() const
{
    return "";
}

void PDriverSerial::showLineState()
{
    setProperty(QStringLiteral("lineError"), m_line->error(), false);
    setProperty(QStringLiteral("lineState"), stateText(m_line->state()), false);
    setProperty(QStringLiteral("connected"), m_line->state() == SerialLine::State::Open, false);
}
