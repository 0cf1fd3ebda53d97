#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

/// A tightening program as the wrench holds it.
struct Program
{
    /// The fields as they go over the line: UNT0,ANG90,TRQ12,SNG3,ADT0,NUM1
    /// UNT: unit (0 N.m, 1 ft.lb, 2 lbf.ft, 3 kgf.m); ANG: target angle in degrees, 0: not watched; TRQ: target torque
    /// in the unit; SNG: snug torque; ADT: audit mode; NUM: number of readings, 0: as many as wanted.
    QByteArray fields;
    double targetTorque = 0.0;
    double targetAngleDeg = 0.0;

    /// Each of the six fields once, in any order; numbers >= 0, the torque > 0. Otherwise nothing, and the error says
    /// why.
    static std::optional<Program> fromFields(const QByteArray& fields, QString* error);

    /// count >= 1 programs that differ from each other, the same ones every time.
    static std::vector<Program> examples(int count);

    /// One program a line; empty lines and lines beginning with "#" are skipped. Empty on error, which names the line.
    static std::vector<Program> fromFile(const QString& path, QString* error);
};
