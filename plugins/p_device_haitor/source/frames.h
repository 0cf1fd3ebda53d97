#pragma once

#include <QByteArray>
#include <QLatin1String>
#include <QMap>
#include <QString>
#include <QVariant>

#include "names.h"

/// The vocabulary of the line: every frame and every line start that the plugin knows, each once.
///
/// A frame is ASCII text that ends in CR LF. Frames to the dongle begin with "AT"; all others go through it to the
/// wrench it is linked to. A worked example, the unlocking of the tool:
///
///     instruction  "write" to "driver", limit 2000 ms
///     parameters   {"frame": bytes 44 54 3A 30 0D 0A ("DT:0", CR, LF), "timeout": 500}
///     reply        {"cmd_success": true}: the bytes have left; it says nothing of the wrench
///     on the line  the wrench answers  4F 4B 3A 30 0D 0A ("OK:0", CR, LF), which the subscriptions hear as
///     reply        {"frame": bytes "OK:0\r\n" or any part of them, "number": 17}
namespace frames {

namespace detail {

// QLatin1String(text) alone is no constant for every compiler: it measures the text with strlen().
constexpr QLatin1String operator""_frame(const char* text, std::size_t size)
{
    return QLatin1String(text, int(size));
}

} // namespace detail

using detail::operator""_frame;

// From us to the dongle.
inline constexpr QLatin1String c_scan = "ATS"_frame;   // answered by RESP lines until ATH
inline constexpr QLatin1String c_hangUp = "ATH"_frame; // stops the scan or drops the link
inline constexpr QLatin1String c_dial = "ATD "_frame;  // and the wrench's address without ":"

// From us to the wrench.
inline constexpr QLatin1String c_probe = "DI:C"_frame;          // answered by OK:1 (locked) or OK:0
inline constexpr QLatin1String c_unlock = "DT:0"_frame;         // leave data-transmission mode
inline constexpr QLatin1String c_lock = "DT:1"_frame;           // enter data-transmission mode
inline constexpr QLatin1String c_configure = "SC:TL:2"_frame;   // answered by OK:2
inline constexpr QLatin1String c_enableResults = "RE:1"_frame;  // answered by OK:1
inline constexpr QLatin1String c_idle = "IDLE"_frame;           // before a programme exchange
inline constexpr QLatin1String c_currentProgram = "TR:C"_frame; // answered by the programme's fields
inline constexpr QLatin1String c_nextProgram = "TR:N"_frame;    // answered by OK

// From the dongle: how its lines begin.
inline constexpr QLatin1String c_wrenchHeard = "RESP"_frame; // RESP <address> <model> <serial number> <signal strength>
inline constexpr QLatin1String c_dialEcho = "ATD"_frame;     // ATD <address>
inline constexpr QLatin1String c_hungUp = "ATH"_frame;       // the hang-up has been executed
inline constexpr QLatin1String c_linkOpen = "DATA"_frame;    // the radio link is open

// From dongle or wrench.
inline constexpr QLatin1String c_refused = "ERR"_frame; // ERR:<code>

// From the wrench.
inline constexpr QLatin1String c_ok = "OK"_frame; // alone, or OK:<value>
inline constexpr QLatin1String c_ok0 = "OK:0"_frame;
inline constexpr QLatin1String c_ok1 = "OK:1"_frame;
inline constexpr QLatin1String c_ok2 = "OK:2"_frame;
inline constexpr QLatin1String c_fields = "OK:"_frame;             // OK:UNT0,ANG90,TRQ12,… of a programme
inline constexpr QLatin1String c_torqueField = "TRQ"_frame;        // by which a programme's fields are known
inline constexpr QLatin1String c_tighteningResult = "RE:F:"_frame; // and seven fields between commas

constexpr char c_lineEnd[] = "\r\n";

// Limits, in milliseconds.
constexpr int c_writeTimeoutMs = 500; // the driver's, for getting a frame onto the line
constexpr int c_driverLimitMs = 2000; // the host's, for the answer of an instruction to "driver"
constexpr int c_ownLimitMs = 3000;    // the host's, for the answer of an instruction to "myself"

// Targets and instructions.
inline const QString c_driver = QStringLiteral("driver");
inline const QString c_myself = QStringLiteral("myself");
inline const QString c_write = QStringLiteral("write");
inline const QString c_closeConnection = QStringLiteral("closeConnection");

/// The bytes of a frame as they go out.
inline QByteArray bytesOf(const QString& text)
{
    return text.toUtf8() + c_lineEnd;
}

/// Parameters of "write". frame: a byte array, or a text for the hang-up.
inline QMap<QString, QVariant> writeParameters(const QVariant& frame)
{
    return {{keys::c_frame, frame}, {QStringLiteral("timeout"), c_writeTimeoutMs}};
}

/// Parameters of a subscription to what arrives on the line. validator: passed on to the driver; empty: left out.
inline QMap<QString, QVariant> subscriptionParameters(const QByteArray& validator = {})
{
    QMap<QString, QVariant> parameters{{QStringLiteral("subscription"), true}};
    if (!validator.isEmpty()) {
        parameters.insert(QStringLiteral("validator"), validator);
    }
    return parameters;
}

} // namespace frames
