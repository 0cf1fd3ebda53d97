#include "scenario_reader.h"

#include "bounds.h"
#include "json_node.h"
#include "json_places.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <limits>

namespace {
constexpr qint64 c_usPerMs = 1000;
constexpr int c_maxFileBytes = 4 * 1024 * 1024;

void readMilliseconds(const JsonNode& node, const char* name, int minimum, qint64* us)
{
    if (node.has(name)) {
        *us = node.member(name).wholeNumber(minimum, c_maxMs) * c_usPerMs;
    }
}

void readDongle(const JsonNode& node, Dongle::Settings* dongle)
{
    node.allowMembers({QStringLiteral("mode"), QStringLiteral("linkDelayMs"), QStringLiteral("answerDelayMs"),
                       QStringLiteral("scanPeriodMs")});
    if (node.has("mode")) {
        constexpr Dongle::Mode modes[] = {Dongle::Mode::Redial, Dongle::Mode::Drop, Dongle::Mode::Transparent};
        dongle->mode = modes[node.member("mode").oneOf(
            {QStringLiteral("redial"), QStringLiteral("drop"), QStringLiteral("transparent")})];
    }
    readMilliseconds(node, "linkDelayMs", 0, &dongle->linkDelayUs);
    readMilliseconds(node, "answerDelayMs", 0, &dongle->answerDelayUs);
    readMilliseconds(node, "scanPeriodMs", 1, &dongle->scanPeriodUs);
}

QByteArray readWord(const JsonNode& node)
{
    if (!isWord(node.text())) {
        node.refuse(QStringLiteral("\"%1\" is not one word of printable characters without a comma").arg(node.text()));
    }
    return node.text().toLatin1();
}

/// How many of the usual ones, or the fields of each.
std::vector<Program> readPrograms(const JsonNode& node)
{
    if (node.isNumber()) {
        return Program::examples(node.wholeNumber(1, c_maxPrograms));
    }
    std::vector<Program> programs;
    for (const JsonNode& item : node.items(1, c_maxPrograms)) {
        QString cause;
        const std::optional<Program> program = Program::fromFields(item.text().toLatin1(), &cause);
        if (!program) {
            item.refuse(QStringLiteral("the program \"%1\" is none: %2; write for example "
                                       "UNT0,ANG90,TRQ12,SNG3,ADT0,NUM1")
                            .arg(item.text(), cause));
        }
        programs.push_back(*program);
    }
    return programs;
}

Wrench::Settings readWrench(const JsonNode& node, int number, Scenario* scenario)
{
    node.allowMembers({QStringLiteral("serial"), QStringLiteral("model"), QStringLiteral("mac"),
                       QStringLiteral("rssiDbm"), QStringLiteral("inRange"), QStringLiteral("programs"),
                       QStringLiteral("ratePerSecond"), QStringLiteral("tighteningMs")});
    Wrench::Settings wrench = Scenario::defaultWrench(number);
    wrench.serial = readWord(node.member("serial"));
    if (node.has("model")) {
        wrench.model = readWord(node.member("model"));
    }
    if (node.has("mac")) {
        const JsonNode mac = node.member("mac");
        if (!isAddress(mac.text())) {
            mac.refuse(QStringLiteral("\"%1\" is no address; write it as AA:BB:CC:DD:EE:FF").arg(mac.text()));
        }
        wrench.mac = mac.text().toUpper().toLatin1();
    }
    for (const Wrench::Settings& other : scenario->wrenches) {
        if (other.mac == wrench.mac) {
            node.refuse(QStringLiteral("another wrench has the address %1 already; give each its own \"mac\"")
                            .arg(QString::fromLatin1(wrench.mac)));
        }
    }
    if (node.has("rssiDbm")) {
        wrench.rssiDbm = node.member("rssiDbm").wholeNumber(c_minRssiDbm, c_maxRssiDbm);
    }
    if (node.has("programs")) {
        wrench.programs = readPrograms(node.member("programs"));
    }
    if (node.has("ratePerSecond")) {
        wrench.ratePerSecond = node.member("ratePerSecond").number(0., c_maxRatePerSecond);
    }
    readMilliseconds(node, "tighteningMs", 0, &wrench.tighteningUs);
    if (node.has("inRange") && !node.member("inRange").truth()) {
        scenario->outOfRange.push_back(wrench.mac);
    }
    return wrench;
}

void checkSerial(const JsonNode& node, const QByteArray& serial, const Scenario& scenario)
{
    const bool isKnown = std::any_of(scenario.wrenches.begin(), scenario.wrenches.end(),
                                     [&serial](const Wrench::Settings& wrench) { return wrench.serial == serial; });
    if (!serial.isEmpty() && !isKnown) {
        node.refuse(
            QStringLiteral("no wrench of this scenario has the serial number \"%1\"").arg(QString::fromLatin1(serial)));
    }
}

/// Faults and commands are texts as on the command line and on the console: one way to write them, one to read them.
Fault readFault(const JsonNode& node, const Scenario& scenario)
{
    QString cause;
    const std::optional<Fault> fault = Fault::fromText(node.text(), &cause);
    if (!fault) {
        node.refuse(cause);
    }
    checkSerial(node, fault->serial, scenario);
    return *fault;
}

Event readEvent(const JsonNode& node, const Scenario& scenario)
{
    node.allowMembers({QStringLiteral("atMs"), QStringLiteral("do")});
    Event event;
    event.atUs = node.member("atMs").wholeNumber(0, std::numeric_limits<int>::max()) * c_usPerMs;
    const JsonNode text = node.member("do");
    event.text = text.text();
    QString cause;
    const std::optional<Command> command = Command::fromText(event.text, &cause);
    if (!command) {
        text.refuse(cause);
    }
    if (command->isQuestion()) {
        text.refuse(
            QStringLiteral("\"%1\" is for the console: on a time line nobody hears the answer").arg(event.text));
    }
    checkSerial(text, command->serial, scenario);
    checkSerial(text, command->fault.serial, scenario);
    event.command = *command;
    return event;
}

Scenario read(const JsonNode& node)
{
    node.allowMembers({QStringLiteral("$schema"), QStringLiteral("description"), QStringLiteral("seed"),
                       QStringLiteral("dongle"), QStringLiteral("wrenches"), QStringLiteral("faults"),
                       QStringLiteral("timeLineFrom"), QStringLiteral("timeLine")});
    Scenario scenario;
    for (const char* text : {"$schema", "description"}) {
        if (node.has(text)) {
            node.member(text).text();
        }
    }
    if (node.has("seed")) {
        scenario.seed = static_cast<quint32>(node.member("seed").wholeNumber(0, std::numeric_limits<int>::max()));
    }
    if (node.has("dongle")) {
        readDongle(node.member("dongle"), &scenario.dongle);
    }
    if (node.has("wrenches")) {
        scenario.wrenches.clear();
        for (const JsonNode& item : node.member("wrenches").items(1, c_maxWrenches)) {
            const int number = static_cast<int>(scenario.wrenches.size()) + 1;
            scenario.wrenches.push_back(readWrench(item, number, &scenario));
        }
    }
    if (node.has("faults")) {
        for (const JsonNode& item : node.member("faults").items(0, FaultInjector::c_maxFaults)) {
            scenario.faults.push_back(readFault(item, scenario));
        }
    }
    if (node.has("timeLineFrom")) {
        const int from = node.member("timeLineFrom").oneOf({QStringLiteral("start"), QStringLiteral("first-frame")});
        scenario.timeLineFrom = from == 0 ? Scenario::TimeLineFrom::Start : Scenario::TimeLineFrom::FirstFrame;
    }
    if (node.has("timeLine")) {
        for (const JsonNode& item : node.member("timeLine").items(0, c_maxEvents)) {
            scenario.events.push_back(readEvent(item, scenario));
        }
        std::stable_sort(scenario.events.begin(), scenario.events.end(),
                         [](const Event& one, const Event& other) { return one.atUs < other.atUs; });
    }
    return scenario;
}

QString wrongAt(const QString& file, int line, const QString& cause)
{
    return QStringLiteral("scenario %1, line %2: %3").arg(file, QString::number(line), cause);
}
} // namespace

std::optional<Scenario> readScenarioFile(const QString& file, QString* error)
{
    QFile input(file);
    if (!input.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("scenario %1: cannot be read: %2; check the name and the rights of the file")
                     .arg(file, input.errorString());
        return std::nullopt;
    }
    const QByteArray text = input.read(c_maxFileBytes + 1); // a device would never end
    if (text.size() > c_maxFileBytes) {
        *error = QStringLiteral("scenario %1: is longer than %2 bytes, which no scenario needs to be")
                     .arg(file, QString::number(c_maxFileBytes));
        return std::nullopt;
    }
    return readScenario(text, file, error);
}

std::optional<Scenario> readScenario(const QByteArray& text, const QString& file, QString* error)
{
    QJsonParseError parsing{};
    const QJsonDocument document = QJsonDocument::fromJson(text, &parsing);
    if (parsing.error != QJsonParseError::NoError) {
        const int line = 1 + text.left(parsing.offset).count('\n');
        *error = wrongAt(file, line, QStringLiteral("this is no JSON: %1").arg(parsing.errorString()));
        return std::nullopt;
    }
    const JsonPlaces places(text);
    try {
        if (!places.repeatedPath().isEmpty()) {
            throw JsonRefusal{places.repeatedPath(), QStringLiteral("\"%1\" stands here a second time")
                                                         .arg(places.repeatedPath().section(QLatin1Char('/'), -1))};
        }
        return read({document.isObject() ? QJsonValue(document.object()) : QJsonValue(document.array()), QString()});
    } catch (const JsonRefusal& refusal) {
        *error = wrongAt(file, places.lineOf(refusal.path), refusal.cause);
        return std::nullopt;
    }
}
