#include "program_fields.h"

#include <QStringView>

#include <limits>

#include "frames.h"

namespace program_fields {

namespace {

constexpr int c_codeLength = 3;
constexpr int c_torqueFactor = 100;

QString unitOf(const QString& text, const QString& unknown)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    switch (isNumber ? number : -1) {
    case 0:
        return QStringLiteral("N.m");
    case 1:
        return QStringLiteral("ft.lb");
    case 2:
        return QStringLiteral("lbf.ft");
    case 3:
        return QStringLiteral("kgf.m");
    default:
        return unknown;
    }
}

int torqueOf(const QString& text)
{
    const qint64 torque = qint64{text.toInt()} * c_torqueFactor;
    const bool fits = torque >= std::numeric_limits<int>::min() && torque <= std::numeric_limits<int>::max();
    return fits ? static_cast<int>(torque) : 0;
}

/// What the two records have in common.
QVariantMap readableKeys(const QVariantMap& fields, const QString& unknownUnit)
{
    const auto text = [&fields](const QString& code) { return fields.value(code).toString(); };
    return {{QStringLiteral("unit"), unitOf(text(QStringLiteral("UNT")), unknownUnit)},
            {QStringLiteral("targetAngle"), text(QStringLiteral("ANG"))},
            {QStringLiteral("torque"), torqueOf(text(frames::c_torqueField))},
            {QStringLiteral("snugTorque"), text(QStringLiteral("SNG"))},
            {QStringLiteral("auditMode"), text(QStringLiteral("ADT"))},
            {QStringLiteral("numberOfReadings"), text(QStringLiteral("NUM"))}};
}

} // namespace

bool namesAProgram(const QString& line)
{
    return line.contains(frames::c_torqueField);
}

QString withoutAcknowledgement(const QString& line)
{
    return line.startsWith(frames::c_fields) ? line.mid(frames::c_fields.size()) : line;
}

QVariantMap split(const QString& fields)
{
    QVariantMap texts;
    const auto pieces = QStringView(fields).split(u',');
    for (const QStringView piece : pieces) {
        if (piece.size() >= c_codeLength) {
            texts.insert(piece.left(c_codeLength).toString(), piece.mid(c_codeLength).toString());
        }
    }
    return texts;
}

QVariantMap presetOfStoredProgram(const QVariantMap& program)
{
    QVariantMap preset = readableKeys(program, QStringLiteral("N.m"));
    QVariant& numberOfReadings = preset[QStringLiteral("numberOfReadings")];
    if (numberOfReadings.toString() == QLatin1String("0")) {
        numberOfReadings = QStringLiteral("1");
    }
    return preset;
}

QVariantMap presetOfAnswer(const QString& line)
{
    QVariantMap preset = split(withoutAcknowledgement(line));
    const QVariantMap readable = readableKeys(preset, QString());
    for (auto key = readable.cbegin(); key != readable.cend(); ++key) {
        preset.insert(key.key(), key.value());
    }
    return preset;
}

} // namespace program_fields
