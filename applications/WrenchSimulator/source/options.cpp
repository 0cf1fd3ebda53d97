#include "options.h"

#include <QCommandLineParser>
#include <QRegularExpression>

#include <cmath>
#include <limits>

namespace {
constexpr qint64 c_usPerMs = 1000;
constexpr int c_maxMs = 3600 * 1000;
constexpr double c_maxRatePerSecond = 1000.0;
constexpr int c_maxPrograms = 99;

/// Thrown by the readers below and caught in parseOptions() alone.
struct Refusal
{
    QString text;
};

QString option(const char* name)
{
    return QLatin1String(name);
}

int wholeNumber(const QCommandLineParser& parser, const char* name, int minimum, int maximum)
{
    bool isNumber = false;
    const QString text = parser.value(option(name));
    const int number = text.toInt(&isNumber);
    if (!isNumber || number < minimum || number > maximum) {
        throw Refusal{QStringLiteral("--%1 \"%2\" is no whole number from %3 to %4")
                          .arg(option(name), text, QString::number(minimum), QString::number(maximum))};
    }
    return number;
}

qint64 milliseconds(const QCommandLineParser& parser, const char* name, int minimum)
{
    return wholeNumber(parser, name, minimum, c_maxMs) * c_usPerMs;
}

double rate(const QCommandLineParser& parser)
{
    bool isNumber = false;
    const QString text = parser.value(option("rate"));
    const double number = text.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number) || number < 0.0 || number > c_maxRatePerSecond) {
        throw Refusal{
            QStringLiteral("--rate \"%1\" is no number from 0 to %2: give tightenings per second, for example "
                           "0.5; 0 means on demand only")
                .arg(text, QString::number(c_maxRatePerSecond))};
    }
    return number;
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
    throw Refusal{QStringLiteral("--mode \"%1\" is not known: give redial, drop or transparent").arg(text)};
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
        throw Refusal{error};
    }
    return result;
}

/// SERIAL[,model=..][,mac=..][,rssi=..]; number counts the wrenches from 1.
Wrench::Settings wrench(const QString& text, int number)
{
    static const QRegularExpression word(QStringLiteral("^[!-+\\--~]+$")); // printable, without blank and comma
    static const QRegularExpression address(QStringLiteral("^([0-9A-F]{2}:){5}[0-9A-F]{2}$"));
    const auto refuse = [&text](const QString& cause) {
        throw Refusal{QStringLiteral("--wrench \"%1\": %2; write SERIAL[,model=..][,mac=AA:BB:CC:DD:EE:FF][,rssi=-60]")
                          .arg(text, cause)};
    };

    Wrench::Settings result;
    QStringList parts = text.split(QLatin1Char(','));
    const QString serial = parts.takeFirst();
    if (!word.match(serial).hasMatch()) {
        refuse(QStringLiteral("the serial number must be one word of printable characters"));
    }
    result.serial = serial.toLatin1();
    result.model = QByteArrayLiteral("TW60");
    result.mac = "02:00:00:00:00:" + QByteArray::number(number, 16).rightJustified(2, '0').toUpper();
    for (const QString& part : qAsConst(parts)) {
        const QString value = part.section(QLatin1Char('='), 1);
        if (part.startsWith(QLatin1String("model="))) {
            if (!word.match(value).hasMatch()) {
                refuse(QStringLiteral("the model must be one word of printable characters"));
            }
            result.model = value.toLatin1();
        } else if (part.startsWith(QLatin1String("mac="))) {
            if (!address.match(value.toUpper()).hasMatch()) {
                refuse(QStringLiteral("\"%1\" is no address").arg(value));
            }
            result.mac = value.toUpper().toLatin1();
        } else if (part.startsWith(QLatin1String("rssi="))) {
            bool isNumber = false;
            result.rssiDbm = value.toInt(&isNumber);
            if (!isNumber || result.rssiDbm < -120 || result.rssiDbm > 0) {
                refuse(QStringLiteral("rssi \"%1\" is no whole number from -120 to 0 (dBm)").arg(value));
            }
        } else {
            refuse(QStringLiteral("\"%1\" is not known").arg(part));
        }
    }
    return result;
}

std::vector<Wrench::Settings> wrenches(const QCommandLineParser& parser)
{
    constexpr int c_maxWrenches = 250;
    const QStringList texts = parser.values(option("wrench"));
    if (texts.size() > c_maxWrenches) {
        throw Refusal{QStringLiteral("--wrench is given %1 times: give at most %2")
                          .arg(QString::number(texts.size()), QString::number(c_maxWrenches))};
    }
    std::vector<Wrench::Settings> result;
    for (const QString& text : texts) {
        Wrench::Settings next = wrench(text, static_cast<int>(result.size()) + 1);
        for (const Wrench::Settings& other : result) {
            if (other.mac == next.mac) {
                throw Refusal{
                    QStringLiteral("--wrench \"%1\": another wrench has the address %2 already; give each its own")
                        .arg(text, QString::fromLatin1(next.mac))};
            }
        }
        next.programs = programs(parser);
        next.ratePerSecond = rate(parser);
        next.tighteningUs = milliseconds(parser, "tightening-time", 0);
        result.push_back(next);
    }
    return result;
}

ReplayOptions replay(const QCommandLineParser& parser)
{
    const bool isReplay = parser.isSet(option("replay"));
    const QStringList given = parser.optionNames();
    for (const QString& name : given) {
        const bool isForReplay = name == option("pace");
        const bool isForBoth = name == option("replay") || name == option("link") || name == option("device") ||
                               name == option("baud") || name == option("exit-with-parent");
        if (isReplay && !isForReplay && !isForBoth) {
            throw Refusal{QStringLiteral("--replay and --%1 exclude each other: a replay has no dongle, it says what "
                                         "the trace says")
                              .arg(name)};
        }
        if (!isReplay && isForReplay) {
            throw Refusal{QStringLiteral("--%1 is for a replay: give --replay TRACE, too").arg(name)};
        }
    }
    ReplayOptions result;
    result.tracePath = parser.value(option("replay"));
    if (isReplay && result.tracePath.isEmpty()) {
        throw Refusal{QStringLiteral("--replay: name the file of a trace")};
    }
    const QString pace = parser.value(option("pace"));
    if (pace != QLatin1String("recorded") && pace != QLatin1String("fast")) {
        throw Refusal{QStringLiteral("--pace \"%1\" is not known: give recorded or fast").arg(pace)};
    }
    result.pace = pace == QLatin1String("fast") ? Replayer::Pace::Fast : Replayer::Pace::Recorded;
    return result;
}

Options read(const QCommandLineParser& parser)
{
    if (!parser.positionalArguments().isEmpty()) {
        throw Refusal{QStringLiteral("\"%1\" is not expected: everything is given by options")
                          .arg(parser.positionalArguments().constFirst())};
    }
    Options result;
    result.replay = replay(parser);
    result.dongle.mode = mode(parser);
    result.dongle.linkDelayUs = milliseconds(parser, "link-delay", 0);
    result.dongle.answerDelayUs = milliseconds(parser, "answer-delay", 0);
    result.dongle.scanPeriodUs = milliseconds(parser, "scan-period", 1);
    result.wrenches = wrenches(parser);
    result.seed = static_cast<quint32>(wholeNumber(parser, "seed", 0, std::numeric_limits<int>::max()));
    if (parser.isSet(option("echo"))) {
        Fault echo;
        echo.kind = Fault::Kind::Echo;
        result.faults.push_back(echo);
    }
    const QStringList faults = parser.values(option("fault"));
    for (const QString& text : faults) {
        QString error;
        const std::optional<Fault> fault = Fault::fromText(text, &error);
        if (!fault) {
            throw Refusal{error};
        }
        result.faults.push_back(*fault);
    }
    result.linkPath = parser.value(option("link"));
    result.devicePath = parser.value(option("device"));
    if (!result.linkPath.isEmpty() && !result.devicePath.isEmpty()) {
        throw Refusal{QStringLiteral("--link and --device exclude each other: a device has a path already")};
    }
    if (parser.isSet(option("baud"))) {
        constexpr int c_minBaud = 50;
        constexpr int c_maxBaud = 4000000;
        result.baud = wholeNumber(parser, "baud", c_minBaud, c_maxBaud);
        if (!result.devicePath.isEmpty()) {
            throw Refusal{QStringLiteral("--baud and --device exclude each other: a device has a speed of its own")};
        }
    }
    result.hasConsole = parser.isSet(option("console"));
    result.exitsWithParent = parser.isSet(option("exit-with-parent"));
    return result;
}

void declare(QCommandLineParser& parser)
{
    const auto add = [&parser](const char* name, const char* text, const char* value = "", const char* preset = "") {
        const QString defaultText = *preset != '\0' ? QStringLiteral(" Default: %1.").arg(option(preset)) : QString();
        parser.addOption(QCommandLineOption(option(name), option(text) + defaultText, option(value),
                                            *preset != '\0' ? option(preset) : QString()));
    };
    parser.setApplicationDescription(
        QStringLiteral("A radio dongle with torque wrenches behind it, on a pseudo-terminal.\n"
                       "Prints \"ready PATH\" when PATH can be opened as a serial port.\n"
                       "SIGUSR1 makes the linked wrench (else the first one) tighten once.\n\n") +
        option(c_faultHelp));
    add("wrench", "A wrench in the air: SERIAL[,model=..][,mac=..][,rssi=..]; may be repeated.", "wrench", "2210");
    add("programs", "The wrenches' programs: how many, or a file with one a line (UNT0,ANG90,TRQ12,SNG3,ADT0,NUM1).",
        "file|n", "3");
    add("rate", "Tightenings a second of each wrench, once it reports results and is unlocked; 0: on demand only.", "r",
        "0");
    add("tightening-time", "How long a tightening takes.", "ms", "100");
    add("link-delay", "From dialling to the open link.", "ms", "200");
    add("answer-delay", "From a wrench's frame to its answer.", "ms", "10");
    add("scan-period", "From one report of the wrenches in range to the next.", "ms", "1000");
    add("mode",
        "What a wrench's frame without a link does: redial, drop or transparent (redial, and ATH keeps the link).",
        "mode", "redial");
    add("echo", "Same as --fault echo.");
    add("fault", "Something that goes wrong, see above; may be repeated.", "fault");
    add("seed", "All chance comes from this number: the same seed, the same run.", "n", "1");
    add("replay",
        "Has no dongle and no wrench, but plays the dongle's side of this trace of a serial line. What the host says "
        "differently is told once. Ends when all is played and the line is closed: 0 when the host said what it says "
        "in the trace, otherwise 1.",
        "trace");
    add("pace",
        "When the chunks of a trace leave: as recorded, or fast, as soon as the host has said what it said "
        "before them.",
        "recorded|fast", "recorded");
    add("link", "Makes a symbolic link to the terminal, removed at the end.", "path");
    add("baud", "The dongle's speed: while the terminal is set to another one, both sides receive garbage.", "n");
    add("device", "Uses this serial device instead of a pseudo-terminal.", "path");
    add("console", "Reads commands from standard input; \"help\" lists them. Ends at its end of file.");
    add("exit-with-parent", "Ends when the process (and thread) that started it ends, in whatever way.");
    parser.addHelpOption();
    parser.addVersionOption();
}
} // namespace

ParsedOptions parseOptions(const QStringList& arguments)
{
    QCommandLineParser parser;
    declare(parser);
    if (!parser.parse(arguments)) {
        return {ParsedOptions::Outcome::Refuse, {}, parser.errorText() + QStringLiteral(" Try --help.")};
    }
    if (parser.isSet(QStringLiteral("help"))) {
        return {ParsedOptions::Outcome::Explain, {}, parser.helpText()};
    }
    if (parser.isSet(QStringLiteral("version"))) {
        return {ParsedOptions::Outcome::Explain, {}, QStringLiteral("wrench_simulator " WRENCH_SIMULATOR_VERSION "\n")};
    }
    try {
        return {ParsedOptions::Outcome::Run, read(parser), {}};
    } catch (const Refusal& refusal) {
        return {ParsedOptions::Outcome::Refuse, {}, refusal.text};
    }
}
