#include "command.h"

#include "bounds.h"

#include <QRegularExpression>
#include <QStringList>

namespace {
std::optional<Command> refuse(const QString& text, QString* error)
{
    *error = text;
    return std::nullopt;
}

std::optional<Command> readTighten(const QStringList& arguments, QString* error)
{
    Command command;
    command.kind = Command::Kind::Tighten;
    bool isNumber = true;
    command.count = arguments.isEmpty() ? 1 : arguments.constFirst().toInt(&isNumber);
    command.serial = arguments.value(1).toLatin1();
    if (!isNumber || command.count < 1 || arguments.size() > 2) {
        return refuse(QStringLiteral("write tighten [n] [SERIAL], n from 1, for example: tighten 3 2210"), error);
    }
    return command;
}

/// range and power: SERIAL on|off
std::optional<Command> readSwitch(Command::Kind kind, const QString& word, const QStringList& arguments, QString* error)
{
    Command command;
    command.kind = kind;
    command.serial = arguments.value(0).toLatin1();
    command.isOn = arguments.value(1) == QLatin1String("on");
    if (arguments.size() != 2 || (!command.isOn && arguments.at(1) != QLatin1String("off"))) {
        return refuse(QStringLiteral("write %1 SERIAL on|off, for example: %1 2210 off").arg(word), error);
    }
    return command;
}

std::optional<Command> readFault(const QStringList& arguments, QString* error)
{
    Command command;
    const QString first = arguments.value(0);
    if (arguments.size() == 2 && first == QLatin1String("off")) {
        command.kind = Command::Kind::RemoveFault;
        command.name = arguments.at(1);
        return command;
    }
    if (arguments.size() != 1) {
        return refuse(QStringLiteral("write fault KIND[:ARGUMENTS][%P|@N|@N+], fault off KIND, fault list or "
                                     "fault clear, for example: fault late:200@1"),
                      error);
    }
    if (first == QLatin1String("list")) {
        command.kind = Command::Kind::ListFaults;
        return command;
    }
    if (first == QLatin1String("clear") || first == QLatin1String("none")) {
        command.kind = Command::Kind::ClearFaults;
        return command;
    }
    const std::optional<Fault> fault = Fault::fromText(first, error);
    if (!fault) {
        return std::nullopt;
    }
    command.kind = Command::Kind::SetFault;
    command.fault = *fault;
    return command;
}

std::optional<Command> readUnplug(const QStringList& arguments, QString* error)
{
    Command command;
    command.kind = Command::Kind::Unplug;
    bool isNumber = true;
    command.backMs = arguments.isEmpty() ? 0 : arguments.constFirst().toInt(&isNumber);
    const bool isGood = arguments.isEmpty() || (isNumber && command.backMs >= 1 && command.backMs <= c_maxMs);
    if (!isGood || arguments.size() > 1) {
        return refuse(QStringLiteral("write unplug [ms until it is back, up to %1], for example: unplug 2000")
                          .arg(QString::number(c_maxMs)),
                      error);
    }
    return command;
}

struct PlainRow
{
    const char* word;
    Command::Kind kind;
};
constexpr PlainRow c_plain[] = {
    {"wrenches", Command::Kind::Wrenches}, {"lose-link", Command::Kind::LoseLink}, {"replug", Command::Kind::Replug},
    {"quit", Command::Kind::Quit},         {"help", Command::Kind::Help},
};
} // namespace

bool Command::isQuestion() const
{
    return kind == Kind::Wrenches || kind == Kind::ListFaults || kind == Kind::Help;
}

std::optional<Command> Command::fromText(const QString& text, QString* error)
{
    QStringList arguments = text.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const QString word = arguments.isEmpty() ? QString() : arguments.takeFirst();
    if (word == QLatin1String("tighten")) {
        return readTighten(arguments, error);
    }
    if (word == QLatin1String("range")) {
        return readSwitch(Kind::Range, word, arguments, error);
    }
    if (word == QLatin1String("power")) {
        return readSwitch(Kind::Power, word, arguments, error);
    }
    if (word == QLatin1String("fault")) {
        return readFault(arguments, error);
    }
    if (word == QLatin1String("unplug")) {
        return readUnplug(arguments, error);
    }
    for (const PlainRow& row : c_plain) {
        if (arguments.isEmpty() && word == QLatin1String(row.word)) {
            Command command;
            command.kind = row.kind;
            return command;
        }
    }
    return refuse(QStringLiteral("\"%1\" is no command: \"help\" lists them").arg(text.simplified()), error);
}

QString Command::help()
{
    return QStringLiteral("tighten [n] [SERIAL] | wrenches | range SERIAL on|off | power SERIAL on|off | "
                          "fault KIND[:ARGUMENTS][%P|@N|@N+] | fault off KIND | fault list | fault clear | lose-link | "
                          "unplug [ms] | replug | quit | help");
}
