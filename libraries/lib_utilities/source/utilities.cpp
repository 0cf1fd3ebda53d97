#include <lib_utilities/utilities.h>

#include <QDateTime>
#include <QStringList>

#include <algorithm>

namespace {

constexpr int c_versionFields = 4;
constexpr int c_bitsPerField = 16;

// Digits only: QString::toUShort alone would also accept a sign and blanks.
bool isNumber(const QString& field)
{
    return !field.isEmpty() && std::all_of(field.cbegin(), field.cend(), [](QChar character) {
        return character >= QLatin1Char('0') && character <= QLatin1Char('9');
    });
}

} // namespace

quint64 versionFromString(const QString& text, bool* ok, QChar separator)
{
    if (ok != nullptr) {
        *ok = false;
    }
    const QStringList fields = text.split(separator);
    if (fields.size() > c_versionFields) {
        return 0;
    }
    quint64 version = 0;
    for (int i = 0; i < c_versionFields; ++i) {
        quint16 number = 0;
        if (i < fields.size()) {
            bool fits = isNumber(fields.at(i));
            number = fits ? fields.at(i).toUShort(&fits) : quint16(0);
            if (!fits) {
                return 0;
            }
        }
        version = (version << c_bitsPerField) | number;
    }
    if (ok != nullptr) {
        *ok = true;
    }
    return version;
}

QString getDate()
{
    return QDateTime::currentDateTime().toString(Qt::ISODateWithMs);
}
