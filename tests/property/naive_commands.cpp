#include "naive_commands.h"

namespace {

const QString c_success = QStringLiteral("cmd_success");
const QString c_failed = QStringLiteral("failed");

/// Codes of three letters and what follows them.
QVariantMap codesOf(const QString& text)
{
    QVariantMap codes;
    const QStringList pieces = text.split(QLatin1Char(','), Qt::KeepEmptyParts);
    for (const QString& piece : pieces) {
        if (piece.size() > 2) {
            codes.insert(piece.left(3), piece.mid(3));
        }
    }
    return codes;
}

QString withoutOk(const QString& line)
{
    return line.startsWith(QLatin1String("OK:")) ? line.mid(3) : line;
}

QString unitOf(const QString& code)
{
    bool isNumber = false;
    const int number = code.toInt(&isNumber);
    const QStringList units{QStringLiteral("N.m"), QStringLiteral("ft.lb"), QStringLiteral("lbf.ft"),
                            QStringLiteral("kgf.m")};
    return isNumber ? units.value(number) : QString();
}

/// Read in wide numbers, for the hundredfold may be beyond an int; then it is none.
int torqueOf(const QString& text)
{
    const qlonglong torque = text.toInt() * 100LL;
    return int(torque) == torque ? int(torque) : 0;
}

} // namespace

// ---- Listener

void NaiveListener::begin()
{
    listen(QStringLiteral("0003"));
}

void NaiveListener::onLine(const QString& line)
{
    if (!line.startsWith(QLatin1String("RE:F:"))) {
        return;
    }
    const QStringList fields = line.mid(5).split(QLatin1Char(','), Qt::KeepEmptyParts);
    if (fields.size() < 6) {
        return;
    }
    const QVariantMap record{
        {QStringLiteral("convertedTorque"), fields.at(0)},
        {QStringLiteral("direction"), fields.at(1)},
        {QStringLiteral("torqueStatus"), fields.at(2)},
        {QStringLiteral("snugTorqueAngle"), fields.at(3)},
        {QStringLiteral("angleStatus"), fields.at(4)},
        {QStringLiteral("readingNumber"), fields.at(5)},
        {QStringLiteral("readingStatus"), fields.value(6)},
        {QStringLiteral("eventCountNo"), m_number},
        {QStringLiteral("progId"), m_outcome.properties.value(QStringLiteral("currentProgId")).toInt()}};
    publish({{QStringLiteral("eventData"), record}});
}

// ---- Scan

void NaiveScan::begin()
{
    write(QStringLiteral("ATS"));
    listen();
}

void NaiveScan::onLine(const QString& line)
{
    const QStringList fields = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (line.startsWith(QLatin1String("RESP")) && fields.size() >= 5) {
        m_found.insert(fields.at(1), QVariantMap{{QStringLiteral("mac"), fields.at(1)},
                                                 {QStringLiteral("sn"), fields.at(3)},
                                                 {QStringLiteral("rssi"), fields.at(4)}});
    }
}

void NaiveScan::afterReply()
{
    publish({{QStringLiteral("lastResults"), m_found.values()}});
}

// ---- Connection

void NaiveConnection::begin()
{
    write(QStringLiteral("ATS"));
    listen();
}

void NaiveConnection::onLine(const QString& line)
{
    if (line.startsWith(QLatin1String("RESP"))) {
        const QStringList fields = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        if (fields.size() >= 5 && fields.at(3) == m_parameters.value(QStringLiteral("serialId")).toString()) {
            m_address = QString(fields.at(1)).replace(QLatin1String(":"), QString());
            write(QStringLiteral("ATH"));
        }
    } else if (line.startsWith(QLatin1String("ATD"))) {
        const QStringList fields = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        if (fields.size() == 2 && fields.at(1) == m_address) {
            m_isEchoed = true;
        } else if (fields.size() == 2) {
            m_isAnotherEchoed = true;
        }
    } else if (line.startsWith(QLatin1String("ATH"))) {
        if (!m_address.isEmpty()) {
            write(QStringLiteral("ATD ") + m_address);
        }
    } else if (line.startsWith(QLatin1String("DATA")) && (m_isEchoed || m_isAnotherEchoed)) {
        publish({{c_success, m_isEchoed}});
        hangUpAndEnd();
    } else if (line.startsWith(QLatin1String("ERR"))) {
        const QStringList fields = line.split(QLatin1Char(':'), Qt::SkipEmptyParts);
        if (fields.size() == 2 && fields.at(1) == QLatin1String("2") && !m_isProbing) {
            m_isProbing = true;
            send(QStringLiteral("DI:C"));
        } else {
            publish({{c_success, false}});
            publish({{c_failed, true}});
            hangUpAndEnd();
        }
    } else if (m_isProbing) {
        onProbeAnswer(line);
    }
}

void NaiveConnection::onProbeAnswer(const QString& line)
{
    if (m_sent == QLatin1String("DI:C") && (line == QLatin1String("OK:1") || line == QLatin1String("OK:0"))) {
        send(QStringLiteral("DT:0"));
    } else if (m_sent == QLatin1String("DT:0") && line.startsWith(QLatin1String("OK"))) {
        publish({{c_success, true}});
        publish({{c_failed, false}});
        hangUpAndEnd();
    }
}

void NaiveConnection::hangUpAndEnd()
{
    write(QStringLiteral("ATH"));
    end();
}

// ---- Initial configuration

void NaiveConfiguration::begin()
{
    m_outcome.properties.insert(QStringLiteral("lock"), false);
    listen();
    send(QStringLiteral("DT:1"));
}

void NaiveConfiguration::onLine(const QString& line)
{
    if (line.isEmpty()) {
        return;
    }
    if (m_sent == QLatin1String("DT:1") && line == QLatin1String("OK:1")) {
        m_outcome.properties.insert(QStringLiteral("lock"), true);
        send(QStringLiteral("SC:TL:2"));
    } else if (m_sent == QLatin1String("SC:TL:2") && line == QLatin1String("OK:2")) {
        send(QStringLiteral("RE:1"));
    } else if (m_sent == QLatin1String("RE:1") && line == QLatin1String("OK:1")) {
        publish({{c_success, true}});
        end();
    } else if (line.contains(QLatin1String("ERR"))) {
        publish({{c_failed, true}});
        end();
    }
}

// ---- Program list

void NaiveProgramList::begin()
{
    listen();
    send(QStringLiteral("IDLE"));
}

void NaiveProgramList::onLine(const QString& line)
{
    if (line.isEmpty() || line == m_sent) {
        return;
    }
    if (line.startsWith(QLatin1String("ERR"))) {
        if (m_sent != QLatin1String("IDLE") || m_idleRetries > 4) {
            storeAndEnd();
        } else {
            m_idleRetries = m_idleRetries + 1;
            send(QStringLiteral("IDLE"));
        }
    } else if (m_sent == QLatin1String("IDLE")) {
        if (line == QLatin1String("OK")) {
            send(QStringLiteral("TR:C"));
        }
    } else if (m_sent == QLatin1String("TR:C")) {
        if (line.startsWith(QLatin1String("OK:")) && line.contains(QLatin1String("TRQ"))) {
            onProgram(withoutOk(line));
        }
    } else {
        send(QStringLiteral("TR:C"));
    }
}

void NaiveProgramList::onProgram(const QString& text)
{
    if (m_first.isEmpty()) {
        m_first = text;
    } else if (text == m_first) {
        storeAndEnd();
        return;
    }
    QVariantMap program = codesOf(text);
    program.insert(QStringLiteral("progId"), m_programs.size() + 1);
    m_programs.append(program);
    send(QStringLiteral("TR:N"));
}

void NaiveProgramList::storeAndEnd()
{
    m_outcome.properties.insert(QStringLiteral("programList"), m_programs);
    m_outcome.properties.insert(QStringLiteral("programListCount"), m_programs.size());
    if (!m_programs.isEmpty()) {
        m_outcome.properties.insert(QStringLiteral("currentProgId"), m_programs.size());
    }
    publish({{QStringLiteral("programList"), m_programs}});
    publish({{c_success, true}});
    end();
}

// ---- Selection, of a program that is not current

void NaiveSelection::begin()
{
    m_wanted = m_parameters.value(QStringLiteral("progId")).toInt();
    m_outcome.properties.insert(QStringLiteral("currentProgId"), m_wanted);
    if (m_wanted < 1 || m_wanted > m_outcome.properties.value(QStringLiteral("programListCount")).toInt()) {
        publish({{c_success, false}});
        m_hasEnded = true;
        m_outcome.events.append(QStringLiteral("end     true"));
        return;
    }
    listen();
    send(QStringLiteral("IDLE"));
}

void NaiveSelection::onLine(const QString& line)
{
    if (line.isEmpty() || line == m_sent) {
        return;
    }
    if (m_sent == QLatin1String("TR:C") && line.contains(QLatin1String("TRQ"))) {
        QVariantMap preset = codesOf(withoutOk(line));
        const QVariantMap codes = preset;
        preset.insert(QStringLiteral("unit"), unitOf(codes.value(QStringLiteral("UNT")).toString()));
        preset.insert(QStringLiteral("targetAngle"), codes.value(QStringLiteral("ANG")).toString());
        preset.insert(QStringLiteral("torque"), torqueOf(codes.value(QStringLiteral("TRQ")).toString()));
        preset.insert(QStringLiteral("snugTorque"), codes.value(QStringLiteral("SNG")).toString());
        preset.insert(QStringLiteral("auditMode"), codes.value(QStringLiteral("ADT")).toString());
        preset.insert(QStringLiteral("numberOfReadings"), codes.value(QStringLiteral("NUM")).toString());
        publish({{QStringLiteral("presetData"), preset}});
        publish({{c_success, true}});
        end();
    } else if (line.startsWith(QLatin1String("OK")) &&
               (m_sent == QLatin1String("IDLE") || m_sent == QLatin1String("TR:N"))) {
        if (m_steps < m_wanted - 1) {
            send(QStringLiteral("TR:N"));
            m_steps = m_steps + 1;
        } else {
            send(QStringLiteral("TR:C"));
        }
    }
}
