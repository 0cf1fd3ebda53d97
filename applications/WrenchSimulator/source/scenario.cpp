#include "scenario.h"

#include <QRegularExpression>

namespace {
constexpr qint64 c_usPerMs = 1000;
constexpr int c_defaultPrograms = 3;
} // namespace

Scenario::Scenario()
{
    dongle.linkDelayUs = 200 * c_usPerMs;
    dongle.answerDelayUs = 10 * c_usPerMs;
    dongle.scanPeriodUs = 1000 * c_usPerMs;
    wrenches.push_back(defaultWrench(1));
}

Wrench::Settings Scenario::defaultWrench(int number)
{
    Wrench::Settings wrench;
    wrench.serial = QByteArrayLiteral("2210");
    wrench.model = QByteArrayLiteral("TW60");
    wrench.mac = "02:00:00:00:00:" + QByteArray::number(number, 16).rightJustified(2, '0').toUpper();
    wrench.programs = Program::examples(c_defaultPrograms);
    wrench.tighteningUs = 100 * c_usPerMs;
    return wrench;
}

bool isWord(const QString& text)
{
    static const QRegularExpression word(QStringLiteral("^[!-+\\--~]+\\z"));
    return word.match(text).hasMatch();
}

bool isAddress(const QString& text)
{
    static const QRegularExpression address(QStringLiteral("^([0-9A-Fa-f]{2}:){5}[0-9A-Fa-f]{2}\\z"));
    return address.match(text).hasMatch();
}
