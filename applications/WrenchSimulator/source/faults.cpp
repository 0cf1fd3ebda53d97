#include "faults.h"

#include <QRegularExpression>
#include <QStringList>

#include <array>

const char* const c_faultHelp =
    "Faults, KIND[:ARGUMENTS][@N|@N+]; @N: at the N-th frame from now only, @N+: from it on, else always:\n"
    "  silence        the frame is not heard: no effect, no answer\n"
    "  late:MS        the frame is answered MS milliseconds later\n"
    "  err:N          \"ERR:N\" instead of an answer; the frame has no effect\n"
    "  split[:N[,MS]] all that is sent leaves in pieces of N bytes (1), MS apart (1)\n"
    "  glue[:N[,MS]]  N lines (2) leave as one chunk, fewer after MS (50)\n"
    "  echo           the wrench repeats the frame before it answers\n"
    "  out-of-range[:SERIAL]  this wrench, else the linked one, leaves range\n"
    "  lose-link      the link drops and the frame with it\n"
    "  unplug[:MS]    the line is hung up, and back after MS when given";

namespace {
constexpr int c_maxMs = 3600 * 1000;
constexpr int c_maxCount = 1000000;
constexpr int c_defaultPieceGapMs = 1;
constexpr int c_defaultGlueWaitMs = 50;
constexpr qint64 c_usPerMs = 1000;

struct NumberRange
{
    int minimum = 0;
    int maximum = 0;
    int preset = -1; ///< -1: the argument must be given
};

/// What may stand behind the colon.
struct KindRow
{
    const char* word;
    Fault::Kind kind;
    int maxArguments;
    NumberRange number;
    NumberRange waitMs;
};

constexpr std::array<KindRow, 9> c_kinds = {{
    {"silence", Fault::Kind::Silence, 0, {0, 0, 0}, {0, 0, 0}},
    {"late", Fault::Kind::Late, 1, {0, c_maxMs, -1}, {0, 0, 0}},
    {"err", Fault::Kind::Error, 1, {0, c_maxCount, -1}, {0, 0, 0}},
    {"split", Fault::Kind::Split, 2, {1, c_maxCount, 1}, {0, c_maxMs, c_defaultPieceGapMs}},
    {"glue", Fault::Kind::Glue, 2, {2, c_maxCount, 2}, {0, c_maxMs, c_defaultGlueWaitMs}},
    {"echo", Fault::Kind::Echo, 0, {0, 0, 0}, {0, 0, 0}},
    {"out-of-range", Fault::Kind::OutOfRange, 1, {0, 0, 0}, {0, 0, 0}},
    {"lose-link", Fault::Kind::LoseLink, 0, {0, 0, 0}, {0, 0, 0}},
    {"unplug", Fault::Kind::Unplug, 1, {1, c_maxMs, 0}, {0, 0, 0}},
}};

std::optional<int> numberIn(const QStringList& arguments, int index, const NumberRange& range)
{
    if (index >= arguments.size()) {
        return range.preset >= 0 ? std::optional<int>(range.preset) : std::nullopt;
    }
    bool isNumber = false;
    const int number = arguments.at(index).toInt(&isNumber);
    return isNumber && number >= range.minimum && number <= range.maximum ? std::optional<int>(number) : std::nullopt;
}

QString malformed(const QString& text, const QString& cause)
{
    return QStringLiteral(
               "fault \"%1\": %2; write KIND[:ARGUMENTS][@N|@N+], for example late:200@3 (--help lists the kinds)")
        .arg(text, cause);
}
} // namespace

std::optional<Fault> Fault::fromText(const QString& text, QString* error)
{
    static const QRegularExpression form(QStringLiteral("^([a-z-]+)(?::([^@]+))?(?:@([0-9]+)([+]?))?$"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch()) {
        *error = malformed(text, QStringLiteral("not a fault"));
        return std::nullopt;
    }
    const auto* row = std::find_if(c_kinds.begin(), c_kinds.end(), [&match](const KindRow& candidate) {
        return match.captured(1) == QLatin1String(candidate.word);
    });
    if (row == c_kinds.end()) {
        *error = malformed(text, QStringLiteral("no fault is called \"%1\"").arg(match.captured(1)));
        return std::nullopt;
    }
    const QStringList arguments =
        match.captured(2).isEmpty() ? QStringList() : match.captured(2).split(QLatin1Char(','));
    if (arguments.size() > row->maxArguments) {
        *error = malformed(text, QStringLiteral("it has more arguments than \"%1\" takes").arg(match.captured(1)));
        return std::nullopt;
    }

    Fault fault;
    fault.kind = row->kind;
    if (fault.kind == Kind::OutOfRange) {
        fault.serial = arguments.value(0).toLatin1();
    } else {
        const std::optional<int> number = numberIn(arguments, 0, row->number);
        const std::optional<int> waitMs = numberIn(arguments, 1, row->waitMs);
        if (!number || !waitMs) {
            *error = malformed(text, QStringLiteral("an argument is missing, no whole number, or too small or large"));
            return std::nullopt;
        }
        fault.number = *number;
        fault.waitMs = *waitMs;
    }

    if (!match.captured(3).isEmpty()) {
        bool isNumber = false;
        fault.frame = match.captured(3).toInt(&isNumber);
        if (!isNumber || fault.frame < 1) {
            *error = malformed(text, QStringLiteral("frames are counted from 1"));
            return std::nullopt;
        }
        fault.trigger = match.captured(4).isEmpty() ? Trigger::AtFrame : Trigger::FromFrame;
    }
    return fault;
}

void FaultInjector::add(const Fault& fault)
{
    m_entries.push_back({fault, 0});
}

void FaultInjector::clear()
{
    m_entries.clear();
}

void FaultInjector::frameTakenUp()
{
    for (Entry& entry : m_entries) {
        ++entry.frames;
    }
}

Disturbance FaultInjector::current() const
{
    Disturbance result;
    for (const Entry& entry : m_entries) {
        const Fault& fault = entry.fault;
        const bool isOn = fault.trigger == Fault::Trigger::Always ||
                          (fault.trigger == Fault::Trigger::AtFrame && entry.frames == fault.frame) ||
                          (fault.trigger == Fault::Trigger::FromFrame && entry.frames >= fault.frame);
        if (!isOn) {
            continue;
        }
        switch (fault.kind) {
        case Fault::Kind::Silence:
            result.isSilent = true;
            break;
        case Fault::Kind::Late:
            result.lateUs += fault.number * c_usPerMs;
            break;
        case Fault::Kind::Error:
            result.errorCode = fault.number;
            break;
        case Fault::Kind::Split:
            result.shape.pieceBytes = fault.number;
            result.shape.pieceGapUs = fault.waitMs * c_usPerMs;
            break;
        case Fault::Kind::Glue:
            result.shape.gluedLines = fault.number;
            result.shape.glueWaitUs = fault.waitMs * c_usPerMs;
            break;
        case Fault::Kind::Echo:
            result.isEchoed = true;
            break;
        case Fault::Kind::OutOfRange:
            result.leavesRange = fault.serial;
            break;
        case Fault::Kind::LoseLink:
            result.losesLink = true;
            break;
        case Fault::Kind::Unplug:
            result.unplugMs = fault.number;
            break;
        }
    }
    return result;
}
