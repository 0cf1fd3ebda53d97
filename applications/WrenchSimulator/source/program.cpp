#include "program.h"

#include <QFile>

#include <array>
#include <cmath>

namespace {
constexpr std::array<const char*, 6> c_codes = {"UNT", "ANG", "TRQ", "SNG", "ADT", "NUM"};
constexpr int c_codeLength = 3;
constexpr int c_maxLineBytes = 4096; // a device would never end, nor would its line
constexpr int c_maxPrograms = 10000;

std::optional<double> fieldValue(const QList<QByteArray>& fields, const char* code)
{
    std::optional<double> value;
    for (const QByteArray& field : fields) {
        if (!field.startsWith(code)) {
            continue;
        }
        bool isNumber = false;
        const double number = field.mid(c_codeLength).toDouble(&isNumber);
        if (value || !isNumber || !std::isfinite(number) || number < 0.0) {
            return std::nullopt;
        }
        value = number;
    }
    return value;
}
} // namespace

std::optional<Program> Program::fromFields(const QByteArray& fields, QString* error)
{
    const QList<QByteArray> list = fields.split(',');
    for (const char* code : c_codes) {
        if (!fieldValue(list, code)) {
            *error = QStringLiteral("\"%1\" must stand exactly once, followed by a number of 0 or more")
                         .arg(QLatin1String(code));
            return std::nullopt;
        }
    }
    if (list.size() != static_cast<int>(c_codes.size())) {
        *error = QStringLiteral("only UNT, ANG, TRQ, SNG, ADT and NUM are fields of a program");
        return std::nullopt;
    }
    const double torque = fieldValue(list, "TRQ").value_or(0.0);
    if (torque <= 0.0) {
        *error = QStringLiteral("the torque after \"TRQ\" must be more than 0");
        return std::nullopt;
    }
    return Program{fields, torque, *fieldValue(list, "ANG")};
}

std::vector<Program> Program::examples(int count)
{
    std::vector<Program> programs;
    for (int i = 0; i < count; ++i) {
        const QString fields = QStringLiteral("UNT0,ANG%1,TRQ%2,SNG%3,ADT0,NUM%4")
                                   .arg(QString::number(90 + 15 * i), QString::number(12 + 6 * i),
                                        QString::number(3 + i), QString::number(1 + i));
        programs.push_back({fields.toLatin1(), 12.0 + 6.0 * i, 90.0 + 15.0 * i});
    }
    return programs;
}

std::vector<Program> Program::fromFile(const QString& path, QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("cannot read the programs file %1: %2").arg(path, file.errorString());
        return {};
    }
    std::vector<Program> programs;
    for (int number = 1;; ++number) {
        // Not until atEnd(), which a device is from the beginning.
        const QByteArray read = file.readLine(c_maxLineBytes + 1);
        if (read.isEmpty()) {
            break;
        }
        if (read.size() >= c_maxLineBytes || int(programs.size()) >= c_maxPrograms) {
            *error = QStringLiteral("programs file %1, line %2: no programs file has lines of %3 bytes or %4 programs; "
                                    "name another one")
                         .arg(path, QString::number(number), QString::number(c_maxLineBytes),
                              QString::number(c_maxPrograms));
            return {};
        }
        const QByteArray line = read.trimmed();
        if (line.isEmpty() || line.startsWith('#')) {
            continue;
        }
        QString cause;
        const std::optional<Program> program = fromFields(line, &cause);
        if (!program) {
            *error = QStringLiteral("programs file %1, line %2: %3; write for example UNT0,ANG90,TRQ12,SNG3,ADT0,NUM1")
                         .arg(path, QString::number(number), cause);
            return {};
        }
        programs.push_back(*program);
    }
    if (programs.empty()) {
        *error = QStringLiteral("the programs file %1 holds no program; write one a line, for example "
                                "UNT0,ANG90,TRQ12,SNG3,ADT0,NUM1")
                     .arg(path);
    }
    return programs;
}
