#include "console.h"

#include <QRegularExpression>

namespace {
QString ok(const QString& text)
{
    return QStringLiteral("ok ") + text;
}

QString error(const QString& text)
{
    return QStringLiteral("error ") + text;
}

QString okUnless(const QString& refusal, const QString& text)
{
    return refusal.isEmpty() ? ok(text) : error(refusal);
}

QString unknownWrench(const QString& serial)
{
    return error(QStringLiteral("no wrench has the serial number \"%1\": \"wrenches\" lists them").arg(serial));
}
} // namespace

Console::Console(Dongle& dongle, LineSwitch& line) : m_dongle(dongle), m_line(line) {}

QString Console::execute(const QString& commandLine, qint64 nowUs)
{
    QStringList arguments = commandLine.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
    const QString command = arguments.isEmpty() ? QString() : arguments.takeFirst();
    if (command == QLatin1String("tighten")) {
        return tighten(arguments, nowUs);
    }
    if (command == QLatin1String("range")) {
        return setRange(arguments, nowUs);
    }
    if (command == QLatin1String("fault")) {
        return setFault(arguments);
    }
    if (arguments.isEmpty()) {
        if (command == QLatin1String("wrenches")) {
            return describeWrenches();
        }
        if (command == QLatin1String("lose-link")) {
            return loseLink(nowUs);
        }
        if (command == QLatin1String("unplug")) {
            return okUnless(m_line.unplug(), QStringLiteral("unplugged"));
        }
        if (command == QLatin1String("replug")) {
            return okUnless(m_line.replug(), QStringLiteral("replugged"));
        }
        if (command == QLatin1String("quit")) {
            m_line.quit();
            return ok(QStringLiteral("bye"));
        }
        if (command == QLatin1String("help")) {
            return ok(
                QStringLiteral("tighten [n] [SERIAL] | wrenches | range SERIAL on|off | fault KIND[:ARGUMENTS][@N|@N+] "
                               "| fault none | lose-link | unplug | replug | quit | help"));
        }
    }
    return error(QStringLiteral("\"%1\" is no command: \"help\" lists them").arg(commandLine.simplified()));
}

QString Console::tighten(const QStringList& arguments, qint64 nowUs)
{
    bool isNumber = true;
    const int count = arguments.isEmpty() ? 1 : arguments.constFirst().toInt(&isNumber);
    if (!isNumber || count < 1 || arguments.size() > 2) {
        return error(QStringLiteral("write tighten [n] [SERIAL], n from 1, for example: tighten 3 2210"));
    }
    std::optional<int> wrench = m_dongle.linkedWrench() ? m_dongle.linkedWrench() : 0;
    if (arguments.size() == 2) {
        wrench = m_dongle.findWrench(arguments.at(1).toLatin1());
        if (!wrench) {
            return unknownWrench(arguments.at(1));
        }
    }
    const QString serial = QString::fromLatin1(m_dongle.wrench(*wrench).settings().serial);
    return okUnless(m_dongle.demandTightening(*wrench, count, nowUs),
                    QStringLiteral("%1 tightenings by wrench %2").arg(QString::number(count), serial));
}

QString Console::describeWrenches() const
{
    QStringList texts;
    for (int i = 0; i < m_dongle.wrenchCount(); ++i) {
        const Wrench& wrench = m_dongle.wrench(i);
        const Wrench::Settings& settings = wrench.settings();
        texts.append(QStringLiteral("%1 %2 %3 %4 dBm, %5, %6, %7, %8, program %9 of %10, %11 readings")
                         .arg(QString::fromLatin1(settings.serial), QString::fromLatin1(settings.mac),
                              QString::fromLatin1(settings.model), QString::number(settings.rssiDbm),
                              m_dongle.isInRange(i) ? QStringLiteral("in range") : QStringLiteral("out of range"),
                              m_dongle.linkedWrench() == i ? QStringLiteral("linked") : QStringLiteral("not linked"),
                              wrench.isLocked() ? QStringLiteral("locked") : QStringLiteral("unlocked"),
                              wrench.isReporting() ? QStringLiteral("reporting") : QStringLiteral("not reporting"),
                              QString::number(wrench.programNumber()))
                         .arg(QString::number(settings.programs.size()), QString::number(wrench.readings())));
    }
    return ok(texts.join(QStringLiteral("; ")));
}

QString Console::setRange(const QStringList& arguments, qint64 nowUs)
{
    const QString where = arguments.value(1);
    if (arguments.size() != 2 || (where != QLatin1String("on") && where != QLatin1String("off"))) {
        return error(QStringLiteral("write range SERIAL on|off, for example: range 2210 off"));
    }
    const std::optional<int> wrench = m_dongle.findWrench(arguments.constFirst().toLatin1());
    if (!wrench) {
        return unknownWrench(arguments.constFirst());
    }
    m_dongle.setInRange(*wrench, where == QLatin1String("on"), nowUs);
    return ok(QStringLiteral("wrench %1 range %2").arg(arguments.constFirst(), where));
}

QString Console::setFault(const QStringList& arguments)
{
    if (arguments == QStringList(QStringLiteral("none"))) {
        m_dongle.faults().clear();
        return ok(QStringLiteral("no faults"));
    }
    if (arguments.size() != 1) {
        return error(
            QStringLiteral("write fault KIND[:ARGUMENTS][@N|@N+] or fault none, for example: fault late:200@1"));
    }
    QString refusal;
    const std::optional<Fault> fault = Fault::fromText(arguments.constFirst(), &refusal);
    if (!fault) {
        return error(refusal);
    }
    m_dongle.faults().add(*fault);
    return ok(QStringLiteral("fault ") + arguments.constFirst());
}

QString Console::loseLink(qint64 nowUs)
{
    return m_dongle.loseLink(nowUs) ? ok(QStringLiteral("link lost")) : error(QStringLiteral("no link is open"));
}
