#include "dongle.h"

#include <algorithm>
#include <utility>

namespace {
constexpr int c_maxRssiWanderDb = 3;
constexpr const char* c_nobodysAddress = "02FFFFFFFFFF";

QByteArray errorLine(int code)
{
    return "ERR:" + QByteArray::number(code);
}

QByteArray dialled(const Wrench& wrench)
{
    return QByteArray(wrench.settings().mac).replace(':', "");
}

/// The address of a wrench that is not there, as a scan reports it.
QByteArray twinOf(const QByteArray& address)
{
    const QByteArray first = QByteArray::number(address.left(2).toInt(nullptr, 16) ^ 4, 16);
    return first.rightJustified(2, '0').toUpper() + address.mid(2);
}

constexpr int c_errorUnreachable = 1;
constexpr int c_errorLinkOpen = 2;
constexpr int c_errorNoLink = 3;
} // namespace

Dongle::Dongle(const Settings& settings, const std::vector<Wrench>& wrenches, const RandomSource& random, NoteSink note)
    : m_settings(settings), m_note(std::move(note)), m_faults(random), m_output(m_note)
{
    for (const Wrench& wrench : wrenches) {
        m_stations.push_back({wrench, random.stream("rssi " + wrench.settings().mac)});
    }
}

void Dongle::receive(const QByteArray& bytes, qint64 nowUs)
{
    advance(nowUs);
    const QByteArrayList frames = m_cutter.feed(bytes);
    if (const int dropped = m_cutter.takeDroppedBytes(); dropped > 0) {
        m_note(QStringLiteral("%1 bytes received without a line end were dropped: a line has at most %2")
                   .arg(QString::number(dropped), QString::number(LineCutter::c_maxLineBytes)));
    }
    for (const QByteArray& frame : frames) {
        if (m_waiting.size() == c_maxWaitingFrames) {
            m_note(QStringLiteral("%1 frames wait for their answer already: dropped \"%2\"")
                       .arg(QString::number(c_maxWaitingFrames), QString::fromLatin1(frame)));
            continue;
        }
        m_waiting.push_back(frame);
        advance(nowUs);
        if (m_unplugMs) {
            return; // the frames behind went into a line that was no longer there
        }
    }
}

void Dongle::advance(qint64 nowUs)
{
    for (auto dueUs = nextDueUs(); dueUs && *dueUs <= nowUs; dueUs = nextDueUs()) {
        // What became due while something else was waited for happens now, not in the past.
        m_nowUs = std::max(m_nowUs, *dueUs);
        step(m_nowUs);
    }
    m_nowUs = std::max(m_nowUs, nowUs);
}

std::optional<qint64> Dongle::nextDueUs() const
{
    std::optional<qint64> result;
    const auto consider = [&result](std::optional<qint64> dueUs) {
        if (dueUs && (!result || *dueUs < *result)) {
            result = dueUs;
        }
    };
    consider(m_nextReportUs);
    if (m_dialling) {
        consider(m_dialling->dueUs);
    }
    if (!m_inHand && !m_waiting.empty()) {
        consider(m_nowUs);
    }
    if (m_inHand && (!m_dialling || isForDongle(m_inHand->frame))) {
        consider(m_inHand->dueUs);
    }
    for (const Station& station : m_stations) {
        consider(station.wrench.nextDueUs());
        consider(station.backUs);
    }
    consider(m_flood.nextDueUs());
    consider(m_endless.nextDueUs());
    return result;
}

std::optional<int> Dongle::takeUnplug()
{
    return std::exchange(m_unplugMs, std::nullopt);
}

void Dongle::powerOff(qint64 nowUs)
{
    advance(nowUs);
    dropEverything();
}

void Dongle::dropEverything()
{
    m_cutter.clear();
    m_output.clear();
    m_waiting.clear();
    m_inHand.reset();
    m_nextReportUs.reset();
    m_dialling.reset();
    m_link.reset();
    m_flood.stop();
    m_endless.stop();
}

bool Dongle::loseLink(qint64 nowUs)
{
    advance(nowUs);
    return std::exchange(m_link, std::nullopt).has_value();
}

std::optional<int> Dongle::findWrench(const QByteArray& serial) const
{
    for (int i = 0; i < wrenchCount(); ++i) {
        if (wrench(i).settings().serial == serial) {
            return i;
        }
    }
    return std::nullopt;
}

void Dongle::setInRange(int index, bool isInRange, qint64 nowUs)
{
    advance(nowUs);
    if (isInRange) {
        station(index).isInRange = true;
        station(index).backUs.reset();
    } else {
        leaveRange(index, 0);
    }
}

void Dongle::setPower(int index, bool hasPower, qint64 nowUs)
{
    advance(nowUs);
    station(index).hasPower = hasPower;
    if (!hasPower) {
        station(index).wrench.powerOff();
        if (m_link == index) {
            m_link.reset();
        }
    }
}

QString Dongle::demandTightening(int index, int count, qint64 nowUs)
{
    advance(nowUs);
    if (!hasPower(index)) {
        return QStringLiteral("wrench %1 is switched off: power it on first")
            .arg(QString::fromLatin1(wrench(index).settings().serial));
    }
    QString refusal = station(index).wrench.demand(count, nowUs);
    sendResults(nowUs);
    return refusal;
}

bool Dongle::isForDongle(const QByteArray& frame) const
{
    if (frame == "ATH") {
        return m_settings.mode != Mode::Transparent || !m_link;
    }
    return frame == "ATS" || frame == "ATD" || frame.startsWith("ATD ");
}

void Dongle::step(qint64 atUs)
{
    for (Station& station : m_stations) {
        station.wrench.advance(atUs);
    }
    comeBack(atUs);
    sendResults(atUs);
    babble(atUs);
    if (m_nextReportUs && *m_nextReportUs <= atUs) {
        reportWrenches(atUs);
    }
    if (m_dialling && m_dialling->dueUs <= atUs) {
        finishDialling(atUs);
    }
    if (m_inHand && m_inHand->dueUs <= atUs && (!m_dialling || isForDongle(m_inHand->frame))) {
        answerFrame(atUs);
    }
    if (!m_inHand && !m_waiting.empty()) {
        takeUpFrame(atUs);
    }
}

void Dongle::takeUpFrame(qint64 atUs)
{
    const QByteArray frame = std::move(m_waiting.front());
    m_waiting.pop_front();

    m_firstFrameUs = m_firstFrameUs.value_or(atUs);
    const Disturbance disturbance = m_faults.frameTakenUp();
    if (disturbance.leave) {
        const std::optional<int> leaving =
            disturbance.leave->serial.isEmpty() ? m_link : findWrench(disturbance.leave->serial);
        if (leaving) {
            leaveRange(*leaving, disturbance.leave->backUs > 0 ? atUs + disturbance.leave->backUs : 0);
        }
    }
    if (disturbance.unplugMs) {
        m_unplugMs = disturbance.unplugMs;
        dropEverything();
        return;
    }
    if (disturbance.flood) {
        m_flood.start(*disturbance.flood, atUs);
    }
    if (disturbance.endless) {
        m_endless.start(*disturbance.endless, atUs);
    }
    if (disturbance.losesLink) {
        m_link.reset();
        return;
    }
    if (disturbance.isSilent) {
        return;
    }
    const qint64 delayUs = disturbance.lateUs + (isForDongle(frame) ? 0 : m_settings.answerDelayUs);
    m_inHand = FrameInHand{frame, atUs + delayUs, disturbance};
}

void Dongle::leaveRange(int index, qint64 backUs)
{
    station(index).isInRange = false;
    station(index).backUs = backUs > 0 ? std::optional<qint64>(backUs) : std::nullopt;
    if (m_link == index) {
        m_link.reset();
    }
}

void Dongle::comeBack(qint64 atUs)
{
    for (Station& station : m_stations) {
        if (station.backUs && *station.backUs <= atUs) {
            station.isInRange = true;
            station.backUs.reset();
        }
    }
}

void Dongle::babble(qint64 atUs)
{
    for (auto dueUs = m_flood.nextDueUs(); dueUs && *dueUs <= atUs; dueUs = m_flood.nextDueUs()) {
        send(m_flood.take(), atUs);
    }
    for (auto dueUs = m_endless.nextDueUs(); dueUs && *dueUs <= atUs; dueUs = m_endless.nextDueUs()) {
        m_output.post(m_endless.take(), {}, atUs);
    }
}

void Dongle::answerFrame(qint64 atUs)
{
    const QByteArray frame = m_inHand->frame;
    const Disturbance disturbance = m_inHand->disturbance;
    const bool isDialling = frame.startsWith("ATD") && isForDongle(frame);
    if (disturbance.hasForeignEcho && !isDialling) {
        // Before a link it is not known which wrenches are foreign.
        send("ATD " + (m_link ? foreignAddress(dialled(wrench(*m_link))) : QByteArray(c_nobodysAddress)), atUs);
        m_inHand->disturbance.hasForeignEcho = false; // a frame that waits for its link comes here twice
    }
    if (disturbance.errorCode) {
        send(errorLine(*disturbance.errorCode), atUs);
        m_inHand.reset();
        return;
    }
    if (!isForDongle(frame)) {
        passToWrench(atUs);
        return;
    }
    m_inHand.reset();
    if (frame == "ATS") {
        startScan(atUs);
    } else if (frame == "ATH") {
        hangUp(atUs);
    } else {
        dial(frame.mid(4), disturbance.hasForeignEcho, atUs);
    }
}

void Dongle::passToWrench(qint64 atUs)
{
    if (!m_link && m_settings.mode != Mode::Drop && m_lastLink) {
        // The frame stays in hand until the link is open or cannot be opened.
        m_nextReportUs.reset();
        m_dialling = Dialling{m_lastLink, atUs + m_settings.linkDelayUs, false};
        return;
    }
    const FrameInHand inHand = *std::exchange(m_inHand, std::nullopt);
    if (!m_link) {
        send(errorLine(c_errorNoLink), atUs);
        return;
    }
    if (inHand.disturbance.isEchoed) {
        send(inHand.frame, atUs);
    }
    const QByteArray answer = station(*m_link).wrench.receive(inHand.frame, atUs);
    if (!answer.isEmpty()) {
        send(answer, atUs);
    }
    sendResults(atUs);
}

void Dongle::startScan(qint64 atUs)
{
    if (m_link || m_dialling) {
        send(errorLine(c_errorLinkOpen), atUs);
        return;
    }
    reportWrenches(atUs);
}

void Dongle::hangUp(qint64 atUs)
{
    m_nextReportUs.reset();
    m_dialling.reset();
    m_link.reset();
    send("ATH", atUs);
}

void Dongle::dial(const QByteArray& address, bool echoesAnother, qint64 atUs)
{
    m_nextReportUs.reset();
    m_link.reset();
    m_dialling = Dialling{findAddress(address), atUs + m_settings.linkDelayUs, true};
    send("ATD " + (echoesAnother ? foreignAddress(address) : address), atUs);
}

std::optional<int> Dongle::findAddress(const QByteArray& address) const
{
    for (int i = 0; i < wrenchCount(); ++i) {
        if (dialled(wrench(i)) == address) {
            return i;
        }
    }
    return std::nullopt;
}

QByteArray Dongle::foreignAddress(const QByteArray& address) const
{
    for (const Station& station : m_stations) {
        if (dialled(station.wrench) != address) {
            return dialled(station.wrench);
        }
    }
    return c_nobodysAddress;
}

void Dongle::finishDialling(qint64 atUs)
{
    const Dialling call = *std::exchange(m_dialling, std::nullopt);
    if (call.station && station(*call.station).isReachable()) {
        m_link = m_lastLink = call.station;
        if (call.isAsked) {
            send("DATA", atUs);
            sendResults(atUs);
        }
        return;
    }
    send(errorLine(c_errorUnreachable), atUs);
    if (!call.isAsked) {
        m_inHand.reset(); // the frame it was opened for
    }
}

void Dongle::reportWrenches(qint64 atUs)
{
    for (Station& station : m_stations) {
        if (!station.isReachable()) {
            continue;
        }
        const auto stepDb = static_cast<int>(station.random.between(0.0, 3.0)) - 1;
        station.rssiWanderDb = std::clamp(station.rssiWanderDb + stepDb, -c_maxRssiWanderDb, c_maxRssiWanderDb);
        const Wrench::Settings& wrench = station.wrench.settings();
        report(station, wrench.mac, atUs);
        if (m_faults.hasTwin(wrench.serial)) {
            report(station, twinOf(wrench.mac), atUs);
        }
    }
    m_nextReportUs = atUs + m_settings.scanPeriodUs;
}

void Dongle::report(const Station& station, const QByteArray& address, qint64 atUs)
{
    const Wrench::Settings& wrench = station.wrench.settings();
    const QByteArray rssi = QByteArray::number(wrench.rssiDbm + station.rssiWanderDb);
    send("RESP " + address + ' ' + wrench.model + ' ' + wrench.serial + ' ' + rssi, atUs);
}

void Dongle::sendResults(qint64 atUs)
{
    if (!m_link) {
        return;
    }
    const QByteArrayList results = station(*m_link).wrench.takeResults();
    for (const QByteArray& result : results) {
        send(result, atUs);
    }
}

void Dongle::send(const QByteArray& line, qint64 atUs)
{
    const DisturbedLine sent = m_faults.disturb(line);
    m_output.post(sent.bytes, sent.shape, atUs);
}
