#include "scenario_options.h"

#include "bounds.h"
#include "option_values.h"
#include "scenario_reader.h"

#include <QCommandLineParser>

#include <limits>

namespace {
double rate(const QCommandLineParser& parser)
{
    return number(parser, "rate", 0.0, c_maxRatePerSecond,
                  QStringLiteral("give tightenings per second, for example 0.5; 0 means on demand only"));
}

Dongle::Mode mode(const QCommandLineParser& parser)
{
    const QString text = parser.value(option("mode"));
    if (text == QLatin1String("redial")) {
        return Dongle::Mode::Redial;
    }
    if (text == QLatin1String("drop")) {
        return Dongle::Mode::Drop;
    }
    if (text == QLatin1String("transparent")) {
        return Dongle::Mode::Transparent;
    }
    throw OptionRefusal{QStringLiteral("--mode \"%1\" is not known: give redial, drop or transparent").arg(text)};
}

std::vector<Program> programs(const QCommandLineParser& parser)
{
    const QString text = parser.value(option("programs"));
    bool isNumber = false;
    text.toInt(&isNumber);
    if (isNumber) {
        return Program::examples(wholeNumber(parser, "programs", 1, c_maxPrograms));
    }
    QString error;
    std::vector<Program> result = Program::fromFile(text, &error);
    if (result.empty()) {
        throw OptionRefusal{error};
    }
    return result;
}

/// SERIAL[,model=..][,mac=..][,rssi=..]; number counts the wrenches from 1.
Wrench::Settings wrench(const QString& text, int number)
{
    const auto refuse = [&text](const QString& cause) {
        throw OptionRefusal{
            QStringLiteral("--wrench \"%1\": %2; write SERIAL[,model=..][,mac=AA:BB:CC:DD:EE:FF][,rssi=-60]")
                .arg(text, cause)};
    };

    Wrench::Settings result = Scenario::defaultWrench(number);
    QStringList parts = text.split(QLatin1Char(','));
    const QString serial = parts.takeFirst();
    if (!isWord(serial)) {
        refuse(QStringLiteral("the serial number must be one word of printable characters"));
    }
    result.serial = serial.toLatin1();
    for (const QString& part : qAsConst(parts)) {
        const QString value = part.section(QLatin1Char('='), 1);
        if (part.startsWith(QLatin1String("model="))) {
            if (!isWord(value)) {
                refuse(QStringLiteral("the model must be one word of printable characters"));
            }
            result.model = value.toLatin1();
        } else if (part.startsWith(QLatin1String("mac="))) {
            if (!isAddress(value)) {
                refuse(QStringLiteral("\"%1\" is no address").arg(value));
            }
            result.mac = value.toUpper().toLatin1();
        } else if (part.startsWith(QLatin1String("rssi="))) {
            bool isNumber = false;
            result.rssiDbm = value.toInt(&isNumber);
            if (!isNumber || result.rssiDbm < c_minRssiDbm || result.rssiDbm > c_maxRssiDbm) {
                refuse(QStringLiteral("rssi \"%1\" is no whole number from %2 to %3 (dBm)")
                           .arg(value, QString::number(c_minRssiDbm), QString::number(c_maxRssiDbm)));
            }
        } else {
            refuse(QStringLiteral("\"%1\" is not known").arg(part));
        }
    }
    return result;
}

std::vector<Wrench::Settings> wrenches(const QStringList& texts)
{
    if (texts.size() > c_maxWrenches) {
        throw OptionRefusal{QStringLiteral("--wrench is given %1 times: give at most %2")
                                .arg(QString::number(texts.size()), QString::number(c_maxWrenches))};
    }
    std::vector<Wrench::Settings> result;
    for (const QString& text : texts) {
        const Wrench::Settings next = wrench(text, static_cast<int>(result.size()) + 1);
        for (const Wrench::Settings& other : result) {
            if (other.mac == next.mac) {
                throw OptionRefusal{
                    QStringLiteral("--wrench \"%1\": another wrench has the address %2 already; give each its own")
                        .arg(text, QString::fromLatin1(next.mac))};
            }
        }
        result.push_back(next);
    }
    return result;
}

/// What is given beside a scenario goes before it.
void readWrenches(const QCommandLineParser& parser, Scenario& scenario)
{
    if (parser.isSet(option("wrench"))) {
        scenario.wrenches = wrenches(parser.values(option("wrench")));
        scenario.outOfRange.clear();
    }
    const bool hasPrograms = parser.isSet(option("programs"));
    const std::vector<Program> given = hasPrograms ? programs(parser) : std::vector<Program>();
    for (Wrench::Settings& wrench : scenario.wrenches) {
        if (hasPrograms) {
            wrench.programs = given;
        }
        if (parser.isSet(option("rate"))) {
            wrench.ratePerSecond = rate(parser);
        }
        if (parser.isSet(option("tightening-time"))) {
            wrench.tighteningUs = milliseconds(parser, "tightening-time", 0);
        }
    }
}

void readDongle(const QCommandLineParser& parser, Dongle::Settings& dongle)
{
    if (parser.isSet(option("mode"))) {
        dongle.mode = mode(parser);
    }
    if (parser.isSet(option("link-delay"))) {
        dongle.linkDelayUs = milliseconds(parser, "link-delay", 0);
    }
    if (parser.isSet(option("answer-delay"))) {
        dongle.answerDelayUs = milliseconds(parser, "answer-delay", 0);
    }
    if (parser.isSet(option("scan-period"))) {
        dongle.scanPeriodUs = milliseconds(parser, "scan-period", 1);
    }
}

void readFaults(const QCommandLineParser& parser, std::vector<Fault>& faults)
{
    QStringList texts = parser.values(option("fault"));
    if (parser.isSet(option("echo"))) {
        texts.prepend(QStringLiteral("echo"));
    }
    for (const QString& text : qAsConst(texts)) {
        QString error;
        const std::optional<Fault> fault = Fault::fromText(text, &error);
        if (!fault) {
            throw OptionRefusal{error};
        }
        faults.push_back(*fault);
    }
    if (faults.size() > FaultInjector::c_maxFaults) {
        throw OptionRefusal{QStringLiteral("there are %1 faults: give at most %2")
                                .arg(QString::number(faults.size()), QString::number(FaultInjector::c_maxFaults))};
    }
}

Scenario scenarioFile(const QCommandLineParser& parser)
{
    if (!parser.isSet(option("scenario"))) {
        return {};
    }
    QString error;
    const std::optional<Scenario> scenario = readScenarioFile(parser.value(option("scenario")), &error);
    if (!scenario) {
        throw OptionRefusal{error};
    }
    return *scenario;
}
} // namespace

Scenario scenarioOptions(const QCommandLineParser& parser)
{
    Scenario scenario = scenarioFile(parser);
    readDongle(parser, scenario.dongle);
    readWrenches(parser, scenario);
    readFaults(parser, scenario.faults);
    if (parser.isSet(option("seed"))) {
        scenario.seed = static_cast<quint32>(wholeNumber(parser, "seed", 0, std::numeric_limits<int>::max()));
    }
    return scenario;
}
