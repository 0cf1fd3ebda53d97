#pragma once

#include <QString>

/// Words that several commands and the host have in common, each once.

/// Type texts of declarations.
namespace types {

inline const QString c_bool = QStringLiteral("bool");
inline const QString c_int = QStringLiteral("int");
inline const QString c_uint = QStringLiteral("uint");
inline const QString c_text = QStringLiteral("strg");
inline const QString c_map = QStringLiteral("varM");
inline const QString c_list = QStringLiteral("varL");

} // namespace types

/// Names of parameters, results and entries of replies.
namespace keys {

inline const QString c_success = QStringLiteral("cmd_success"); // bool
inline const QString c_failed = QStringLiteral("failed");       // bool
inline const QString c_frame = QStringLiteral("frame");         // bytes or text
inline const QString c_lock = QStringLiteral("lock");           // bool
inline const QString c_number = QStringLiteral("number");       // int, running number of a driver's reply
inline const QString c_presetData = QStringLiteral("presetData");
inline const QString c_progId = QStringLiteral("progId");     // int, from 1
inline const QString c_serialId = QStringLiteral("serialId"); // text

} // namespace keys

/// Names of the plugin's properties, by which its commands share what they know.
namespace properties {

inline const QString c_currentProgId = QStringLiteral("currentProgId");       // int, from 1
inline const QString c_lock = QStringLiteral("lock");                         // bool
inline const QString c_programList = QStringLiteral("programList");           // list of maps
inline const QString c_programListCount = QStringLiteral("programListCount"); // int
inline const QString c_typeName = QStringLiteral("typeName");                 // text

} // namespace properties

/// Names of commands that are declared here and also sent as instructions, and of the stop command.
namespace commands {

inline const QString c_getPresetData = QStringLiteral("getPresetData");
inline const QString c_listenEventsData = QStringLiteral("listenEventsData");
inline const QString c_setKeepAliveFonction = QStringLiteral("setKeepAliveFonction");
inline const QString c_setLock = QStringLiteral("setLock");
inline const QString c_stopListening = QStringLiteral("stopListening");

} // namespace commands
