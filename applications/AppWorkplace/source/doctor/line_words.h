#pragma once

#include <QString>

/// The words of dongle and wrench as far as an examination speaks them itself. docs/protocol.md has what they mean.
namespace line_words {

inline const QString c_hangUp = QStringLiteral("ATH");
inline const QString c_scan = QStringLiteral("ATS");
inline const QString c_dial = QStringLiteral("ATD ");
inline const QString c_probe = QStringLiteral("DI:C");
inline const QString c_lock = QStringLiteral("DT:1");
inline const QString c_unlock = QStringLiteral("DT:0");

inline const QString c_linkOpen = QStringLiteral("DATA");
inline const QString c_refused = QStringLiteral("ERR");
inline const QString c_linkIsOpenAlready = QStringLiteral("ERR:2");
inline const QString c_nobodyToLink = QStringLiteral("ERR:3");
inline const QString c_tightening = QStringLiteral("ERR:5");
inline const QString c_heard = QStringLiteral("RESP");
inline const QString c_locked = QStringLiteral("OK:1");
inline const QString c_unlocked = QStringLiteral("OK:0");
inline const QString c_answered = QStringLiteral("OK:"); ///< begins each answer of a wrench but one
inline const QString c_done = QStringLiteral("OK");      ///< that one; a modem says it, too
inline const QString c_result = QStringLiteral("RE:F:");

/// Text that is not empty, in ASCII, without control characters: what a line of the right speed looks like.
bool isReadable(const QString& line);
/// Readable, and what a dongle says.
bool isOfDongle(const QString& line);
/// Readable, and of nobody that belongs here: neither of a dongle nor a late word of a wrench.
bool isForeign(const QString& line);

} // namespace line_words
