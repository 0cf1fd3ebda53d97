#include "options.h"

#include "option_values.h"
#include "scenario_options.h"

#include <QCommandLineParser>

namespace {
constexpr qint64 c_usPerMs = 1000;
constexpr double c_minSpeed = 0.01;
constexpr double c_maxSpeed = 1000.0;

ReplayOptions replay(const QCommandLineParser& parser)
{
    const bool isReplay = parser.isSet(option("replay"));
    const QStringList given = parser.optionNames();
    for (const QString& name : given) {
        const bool isForReplay = name == option("pace");
        const bool isForBoth = name == option("replay") || name == option("link") || name == option("device") ||
                               name == option("baud") || name == option("exit-with-parent");
        if (isReplay && !isForReplay && !isForBoth) {
            throw OptionRefusal{
                QStringLiteral("--replay and --%1 exclude each other: a replay has no dongle, it says what "
                               "the trace says")
                    .arg(name)};
        }
        if (!isReplay && isForReplay) {
            throw OptionRefusal{QStringLiteral("--%1 is for a replay: give --replay TRACE, too").arg(name)};
        }
    }
    ReplayOptions result;
    result.tracePath = parser.value(option("replay"));
    if (isReplay && result.tracePath.isEmpty()) {
        throw OptionRefusal{QStringLiteral("--replay: name the file of a trace")};
    }
    const QString pace = parser.isSet(option("pace")) ? parser.value(option("pace")) : QStringLiteral("recorded");
    if (pace != QLatin1String("recorded") && pace != QLatin1String("fast")) {
        throw OptionRefusal{QStringLiteral("--pace \"%1\" is not known: give recorded or fast").arg(pace)};
    }
    result.pace = pace == QLatin1String("fast") ? Replayer::Pace::Fast : Replayer::Pace::Recorded;
    return result;
}

Options read(const QCommandLineParser& parser)
{
    if (!parser.positionalArguments().isEmpty()) {
        throw OptionRefusal{QStringLiteral("\"%1\" is not expected: everything is given by options")
                                .arg(parser.positionalArguments().constFirst())};
    }
    Options result;
    result.replay = replay(parser);
    result.scenario = scenarioOptions(parser);
    if (parser.isSet(option("speed"))) {
        result.speed = number(parser, "speed", c_minSpeed, c_maxSpeed,
                              QStringLiteral("give how many times faster than the clock, for example 10"));
    }
    result.linkPath = parser.value(option("link"));
    result.devicePath = parser.value(option("device"));
    if (!result.linkPath.isEmpty() && !result.devicePath.isEmpty()) {
        throw OptionRefusal{QStringLiteral("--link and --device exclude each other: a device has a path already")};
    }
    if (parser.isSet(option("baud"))) {
        constexpr int c_minBaud = 50;
        constexpr int c_maxBaud = 4000000;
        result.baud = wholeNumber(parser, "baud", c_minBaud, c_maxBaud);
        if (!result.devicePath.isEmpty()) {
            throw OptionRefusal{
                QStringLiteral("--baud and --device exclude each other: a device has a speed of its own")};
        }
    }
    result.hasConsole = parser.isSet(option("console"));
    result.exitsWithParent = parser.isSet(option("exit-with-parent"));
    return result;
}

/// For programs, so that nobody else has to read scenarios.
QString wrenchLines(const Scenario& scenario)
{
    QString lines;
    for (const Wrench::Settings& wrench : scenario.wrenches) {
        lines += QString::fromLatin1(wrench.serial) + QLatin1Char('\n');
    }
    return lines;
}

void declare(QCommandLineParser& parser)
{
    // The preset is told only: what is not given is left as the scenario, or else a new Scenario, has it.
    const auto add = [&parser](const char* name, const char* text, const char* value = "", const QString& preset = {}) {
        const QString defaultText = preset.isEmpty() ? QString() : QStringLiteral(" Default: %1.").arg(preset);
        parser.addOption(QCommandLineOption(option(name), option(text) + defaultText, option(value)));
    };
    const Scenario preset;
    const Wrench::Settings& wrench = preset.wrenches.front();
    const auto ms = [](qint64 us) { return QString::number(us / c_usPerMs); };
    parser.setApplicationDescription(
        QStringLiteral("A radio dongle with torque wrenches behind it, on a pseudo-terminal.\n"
                       "Prints \"ready PATH\" when PATH can be opened as a serial port.\n"
                       "SIGUSR1 makes the linked wrench (else the first one) tighten once.\n\n") +
        option(c_faultHelp));
    add("scenario",
        "Wrenches, dongle, faults, seed and a time line from this JSON file. Each option given beside it goes "
        "before it: --wrench instead of its wrenches, --rate, --programs and --tightening-time for all wrenches; "
        "--fault adds to its faults.",
        "file");
    add("wrench", "A wrench in the air: SERIAL[,model=..][,mac=..][,rssi=..]; may be repeated.", "wrench",
        QString::fromLatin1(wrench.serial));
    add("programs", "The wrenches' programs: how many, or a file with one a line (UNT0,ANG90,TRQ12,SNG3,ADT0,NUM1).",
        "file|n", QString::number(wrench.programs.size()));
    add("rate", "Tightenings a second of each wrench, once it reports results and is unlocked; 0: on demand only.", "r",
        QString::number(wrench.ratePerSecond));
    add("tightening-time", "How long a tightening takes.", "ms", ms(wrench.tighteningUs));
    add("link-delay", "From dialling to the open link.", "ms", ms(preset.dongle.linkDelayUs));
    add("answer-delay", "From a wrench's frame to its answer.", "ms", ms(preset.dongle.answerDelayUs));
    add("scan-period", "From one report of the wrenches in range to the next.", "ms", ms(preset.dongle.scanPeriodUs));
    add("mode",
        "What a wrench's frame without a link does: redial, drop or transparent (redial, and ATH keeps the link).",
        "mode", QStringLiteral("redial"));
    add("echo", "Same as --fault echo.");
    add("fault", "Something that goes wrong, see above; may be repeated.", "fault");
    add("seed", "All chance comes from this number: the same seed, the same run.", "n", QString::number(preset.seed));
    add("speed", "Simulated time runs so many times faster than the clock.", "factor", QStringLiteral("1"));
    add("replay",
        "Has no dongle and no wrench, but plays the dongle's side of this trace of a serial line. What the host says "
        "differently is told once. Ends when all is played and the line is closed: 0 when the host said what it says "
        "in the trace, otherwise 1.",
        "trace");
    add("pace",
        "When the chunks of a trace leave: as recorded, or fast, as soon as the host has said what it said "
        "before them.",
        "recorded|fast", QStringLiteral("recorded"));
    add("link", "Makes a symbolic link to the terminal, removed at the end.", "path");
    add("baud", "The dongle's speed: while the terminal is set to another one, both sides receive garbage.", "n");
    add("device", "Uses this serial device instead of a pseudo-terminal.", "path");
    add("console", "Reads commands from standard input; \"help\" lists them. Ends at its end of file.");
    add("list-wrenches", "Prints the serial numbers of the wrenches, one a line, and ends.");
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
        const Options options = read(parser);
        if (parser.isSet(option("list-wrenches"))) {
            return {ParsedOptions::Outcome::Explain, {}, wrenchLines(options.scenario)};
        }
        return {ParsedOptions::Outcome::Run, options, {}};
    } catch (const OptionRefusal& refusal) {
        return {ParsedOptions::Outcome::Refuse, {}, refusal.text};
    }
}
