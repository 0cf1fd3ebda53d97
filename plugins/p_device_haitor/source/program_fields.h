#pragma once

#include <QString>
#include <QVariant>

/// What the wrench says of one of its programs, and the preset record that the host is given of it. Pure functions.
///
/// The wrench answers "TR:C" with "OK:" and comma-separated fields, each a code of three letters and its text:
///
///     OK:UNT2,ANG90,TRQ35,SNG10,ADT0,NUM0
///
/// UNT is the unit (0 N.m, 1 ft.lb, 2 lbf.ft, 3 kgf.m), ANG the target angle, TRQ the torque, SNG the snug torque, ADT
/// the audit mode and NUM the number of readings.
///
/// A preset record has the readable keys "unit", "targetAngle", "torque", "snugTorque", "auditMode" and
/// "numberOfReadings", always all six: "torque" is an int, the text as an integer times 100 (0 when the text is no
/// integer, or when the hundredfold is beyond an int); the others are texts, empty for a missing code.
/// Kept on purpose: only "torque" is scaled, and "12.5" gives 0; snug torque and angle stay the wrench's own text.
namespace program_fields {

/// The line speaks of a program: it names a torque.
bool namesAProgram(const QString& line);

/// The line without the "OK:" that it may begin with.
QString withoutAcknowledgement(const QString& line);

/// The fields between the commas: code to text. A later field of the same code wins; one too short for a code is
/// skipped.
QVariantMap split(const QString& fields);

/// The preset record of a stored program, a map of codes to texts: exactly the six readable keys. A unit that is
/// unknown, unreadable or missing is "N.m", and "numberOfReadings" is at least "1": a stored "0" is raised.
QVariantMap presetOfStoredProgram(const QVariantMap& program);

/// The preset record of the wrench's own answer. Kept on purpose, unlike the record of a stored program: the codes stay
/// beside the six readable keys, a unit that is unknown, unreadable or missing is empty, and a "numberOfReadings" of
/// "0" stays "0".
QVariantMap presetOfAnswer(const QString& line);

} // namespace program_fields
