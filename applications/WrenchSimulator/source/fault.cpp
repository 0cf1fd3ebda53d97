#include "fault.h"

#include "bounds.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <array>

const char* const c_faultHelp =
    "Faults, KIND[:ARGUMENTS][%P|@N|@N+]; %P: with a chance of P percent, @N: at the N-th frame from now only,\n"
    "@N+: from it on, else always. About a frame (the chance is that of each frame):\n"
    "  silence        the frame is not heard: no effect, no answer\n"
    "  late:MS        the frame is answered MS milliseconds later\n"
    "  err:N          \"ERR:N\" instead of an answer; the frame has no effect\n"
    "  echo           the wrench repeats the frame before it answers\n"
    "  foreign-echo   another wrench's address is echoed: instead of the dialled one, and before any other answer\n"
    "  out-of-range[:[SERIAL][,MS]]  this wrench, else the linked one, leaves range, and is back after MS when given\n"
    "  lose-link      the link drops and the frame with it\n"
    "  unplug[:MS]    the line is hung up, and back after MS when given\n"
    "  flood[:N[,MS]]    N lines (100) that nobody asked for, spread over MS (1000)\n"
    "  endless[:N[,MS]]  N bytes (10000) without a line end, spread over MS (1000)\n"
    "About a line that is sent (the chance is that of each line); with @N, what is sent until the next frame:\n"
    "  split[:N[,MS]] it leaves in pieces of N bytes (1), MS apart (1)\n"
    "  glue[:N[,MS]]  N lines (2) leave as one chunk, fewer after MS (50)\n"
    "  cut[:N]        it breaks off after N bytes (else by chance) and its end is lost\n"
    "  flip[:N]       N bytes (1) of it, its end included, are changed\n"
    "  double         it is sent twice\n"
    "  garbage[:N]    N random bytes (16) come before it\n"
    "  lower-case     it is sent in lower-case letters\n"
    "  duplicate-serial[:SERIAL]  a scan reports this wrench, else each, a second time with an address nobody has";

namespace {
constexpr int c_maxCount = 1000000;
constexpr int c_maxGarbageBytes = 4096;
constexpr int c_mustBeGiven = -1;
constexpr double c_maxPercent = 100.0;

struct NumberRange
{
    int minimum = 0;
    int maximum = 0; ///< 0: there is no such argument
    int preset = 0;
};

/// What may stand behind the colon.
struct KindRow
{
    const char* word;
    Fault::Kind kind;
    bool takesSerial = false; ///< first, in the place of the number
    NumberRange number = {};
    NumberRange waitMs = {};

    int maxArguments() const { return int(takesSerial || number.maximum > 0) + int(waitMs.maximum > 0); }
};

constexpr std::array<KindRow, 18> c_kinds = {{
    {"silence", Fault::Kind::Silence},
    {"late", Fault::Kind::Late, false, {0, c_maxMs, c_mustBeGiven}},
    {"err", Fault::Kind::Error, false, {0, c_maxCount, c_mustBeGiven}},
    {"echo", Fault::Kind::Echo},
    {"foreign-echo", Fault::Kind::ForeignEcho},
    {"out-of-range", Fault::Kind::OutOfRange, true, {}, {1, c_maxMs, 0}},
    {"lose-link", Fault::Kind::LoseLink},
    {"unplug", Fault::Kind::Unplug, false, {1, c_maxMs, 0}},
    {"flood", Fault::Kind::Flood, false, {1, c_maxCount, 100}, {0, c_maxMs, 1000}},
    {"endless", Fault::Kind::Endless, false, {1, c_maxCount, 10000}, {0, c_maxMs, 1000}},
    {"duplicate-serial", Fault::Kind::DuplicateSerial, true},
    {"split", Fault::Kind::Split, false, {1, c_maxCount, 1}, {0, c_maxMs, 1}},
    {"glue", Fault::Kind::Glue, false, {2, c_maxCount, 2}, {0, c_maxMs, 50}},
    {"cut", Fault::Kind::Cut, false, {1, c_maxCount, 0}},
    {"flip", Fault::Kind::Flip, false, {1, c_maxCount, 1}},
    {"double", Fault::Kind::Double},
    {"garbage", Fault::Kind::Garbage, false, {1, c_maxGarbageBytes, 16}},
    {"lower-case", Fault::Kind::LowerCase},
}};

/// Each reader returns what is wrong, empty when nothing is.
QString readNumber(const QStringList& arguments, int index, const NumberRange& range, int* number)
{
    *number = range.preset;
    if (index >= arguments.size()) {
        return range.preset == c_mustBeGiven ? QStringLiteral("a number from %1 to %2 is missing after the colon")
                                                   .arg(QString::number(range.minimum), QString::number(range.maximum))
                                             : QString();
    }
    bool isNumber = false;
    *number = arguments.at(index).toInt(&isNumber);
    return isNumber && *number >= range.minimum && *number <= range.maximum
               ? QString()
               : QStringLiteral("\"%1\" is no whole number from %2 to %3")
                     .arg(arguments.at(index), QString::number(range.minimum), QString::number(range.maximum));
}

QString readArguments(const QStringList& arguments, const KindRow& row, Fault* fault)
{
    if (arguments.size() > row.maxArguments()) {
        return row.maxArguments() == 0 ? QStringLiteral("\"%1\" takes no argument").arg(QLatin1String(row.word))
                                       : QStringLiteral("\"%1\" takes at most %2 arguments, parted by a comma")
                                             .arg(QLatin1String(row.word), QString::number(row.maxArguments()));
    }
    QString cause;
    if (row.takesSerial) {
        fault->serial = arguments.value(0).toLatin1();
    } else {
        cause = readNumber(arguments, 0, row.number, &fault->number);
    }
    return cause.isEmpty() ? readNumber(arguments, 1, row.waitMs, &fault->waitMs) : cause;
}

/// text: with its sign, or empty.
QString readTrigger(const QString& text, Fault* fault)
{
    static const QRegularExpression frames(QStringLiteral("^@([0-9]+)([+]?)$"));
    static const QRegularExpression chance(QStringLiteral("^%([0-9]+(?:[.][0-9]+)?)$"));
    if (text.isEmpty()) {
        return {};
    }
    bool isNumber = false;
    if (text.startsWith(QLatin1Char('%'))) {
        fault->trigger = Fault::Trigger::Chance;
        fault->percent = chance.match(text).captured(1).toDouble(&isNumber);
        return isNumber && fault->percent > 0. && fault->percent <= c_maxPercent
                   ? QString()
                   : QStringLiteral("\"%1\" is no chance: write a number above 0 and up to 100 behind the %")
                         .arg(text.mid(1));
    }
    const QRegularExpressionMatch match = frames.match(text);
    fault->trigger = match.captured(2).isEmpty() ? Fault::Trigger::AtFrame : Fault::Trigger::FromFrame;
    fault->frame = match.captured(1).toInt(&isNumber);
    return isNumber && fault->frame >= 1
               ? QString()
               : QStringLiteral("\"%1\" names no frame: they are counted from 1, with a + behind for all that follow")
                     .arg(text.mid(1));
}

const KindRow* rowOf(const QString& word)
{
    const auto* row = std::find_if(c_kinds.begin(), c_kinds.end(),
                                   [&word](const KindRow& each) { return word == QLatin1String(each.word); });
    return row == c_kinds.end() ? nullptr : row;
}
} // namespace

bool Fault::isCalled(const QString& name) const
{
    const KindRow* row = rowOf(name);
    return name == text || (row != nullptr && row->kind == kind);
}

std::optional<Fault> Fault::fromText(const QString& text, QString* error)
{
    static const QRegularExpression trigger(QStringLiteral("[@%]"));
    const QString head = text.left(text.indexOf(trigger)); // all of it when there is none
    const QString word = head.section(QLatin1Char(':'), 0, 0);
    const QString list = head.section(QLatin1Char(':'), 1);
    const KindRow* row = rowOf(word);

    Fault fault;
    fault.text = text;
    QString cause;
    if (row == nullptr) {
        cause = QStringLiteral("no fault is called \"%1\"").arg(word);
    } else if (list.isEmpty() && head.contains(QLatin1Char(':'))) {
        cause = QStringLiteral("nothing stands behind the colon");
    } else {
        fault.kind = row->kind;
        cause = readArguments(list.isEmpty() ? QStringList() : list.split(QLatin1Char(',')), *row, &fault);
        if (cause.isEmpty()) {
            cause = readTrigger(text.mid(head.size()), &fault);
        }
    }
    if (cause.isEmpty()) {
        return fault;
    }
    *error = QStringLiteral("fault \"%1\": %2; write KIND[:ARGUMENTS][%P|@N|@N+], for example late:200%5 or silence@3 "
                            "(--help lists the kinds)")
                 .arg(text, cause);
    return std::nullopt;
}
