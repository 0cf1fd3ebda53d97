#pragma once

#include "babbler.h"
#include "fault_injector.h"
#include "line_cutter.h"
#include "note.h"
#include "output_queue.h"
#include "wrench.h"

#include <deque>
#include <optional>
#include <vector>

/// The radio dongle on the serial line and the wrenches in the air around it: bytes in, chunks of bytes out, under a
/// time that is passed in. Lines end in CR LF both ways; frames are answered one by one, in order.
///
///     ATS         RESP <mac> <model> <serial> <rssi> for each wrench in range, now and once each scan period;
///                 ERR:2 while a link is open or being opened
///     ATH         ATH, and scan and link are ended
///     ATD <mac>   ATD <mac>, and after the link delay DATA, or ERR:1 for an unknown or unreachable wrench; ends
///                 the scan and the link that was open
///     else        for the linked wrench; without a link as the mode says: ERR:3 where there is no wrench to link to,
///                 ERR:1 where the wrench cannot be reached
///
/// Times are microseconds of any clock that never goes back. One thread.
class Dongle
{
public:
    /// Frames that wait for the one in hand; more are dropped, and a note says so.
    static constexpr int c_maxWaitingFrames = 1000;

    enum class Mode {
        Redial,     ///< a frame without a link first opens the link to the wrench linked last, without a word
        Drop,       ///< a frame without a link is refused
        Transparent ///< as Redial, and ATH while linked goes to the wrench and keeps the link
    };

    struct Settings
    {
        Mode mode = Mode::Redial;
        qint64 linkDelayUs = 0;   ///< from dialling to the open link
        qint64 answerDelayUs = 0; ///< from a wrench's frame to its answer
        qint64 scanPeriodUs = 0;  ///< > 0
    };

    Dongle(const Settings& settings, const std::vector<Wrench>& wrenches, const RandomSource& random, NoteSink note);

    /// What has come over the line.
    void receive(const QByteArray& bytes, qint64 nowUs);

    /// Lets the time pass, up to and including nowUs.
    void advance(qint64 nowUs);

    /// When advance() has something to do again, if ever without new input.
    std::optional<qint64> nextDueUs() const;

    /// What goes out: each chunk is meant for one write of its own.
    OutputQueue& output() { return m_output; }
    const OutputQueue& output() const { return m_output; }

    FaultInjector& faults() { return m_faults; }
    const FaultInjector& faults() const { return m_faults; }

    /// The fault "unplug" has struck: ms until the line is back, 0: not by itself. Told once. The dongle has lost its
    /// power by then; to hang up the line is left to its owner.
    std::optional<int> takeUnplug();

    /// Without power: scan, link and whatever waits are gone. The wrench linked last is remembered, wrenches keep
    /// working.
    void powerOff(qint64 nowUs);

    /// False: there was none.
    bool loseLink(qint64 nowUs);

    int wrenchCount() const { return static_cast<int>(m_stations.size()); }
    const Wrench& wrench(int index) const { return m_stations[static_cast<size_t>(index)].wrench; }
    bool isInRange(int index) const { return m_stations[static_cast<size_t>(index)].isInRange; }
    bool hasPower(int index) const { return m_stations[static_cast<size_t>(index)].hasPower; }

    /// When the dongle took up its first frame; nothing: not yet.
    std::optional<qint64> firstFrameUs() const { return m_firstFrameUs; }

    /// The index of the linked wrench; the first wrench of that serial number.
    std::optional<int> linkedWrench() const { return m_link; }
    std::optional<int> findWrench(const QByteArray& serial) const;

    /// A linked wrench that leaves range loses its link.
    void setInRange(int index, bool isInRange, qint64 nowUs);

    /// A wrench without power is not heard, and has forgotten all but its programs and the number of its readings.
    void setPower(int index, bool hasPower, qint64 nowUs);

    /// As Wrench::demand().
    QString demandTightening(int index, int count, qint64 nowUs);

private:
    /// A wrench as the dongle hears it.
    struct Station
    {
        Wrench wrench;
        RandomSource random;
        bool isInRange = true;
        bool hasPower = true;
        std::optional<qint64> backUs = {}; ///< in range again
        int rssiWanderDb = 0;

        bool isReachable() const { return isInRange && hasPower; }
    };

    struct FrameInHand
    {
        QByteArray frame;
        qint64 dueUs;
        Disturbance disturbance;
    };

    struct Dialling
    {
        std::optional<int> station; ///< nothing: nobody has that address
        qint64 dueUs;
        bool isAsked; ///< by ATD, and therefore answered
    };

    Station& station(int index) { return m_stations[static_cast<size_t>(index)]; }
    bool isForDongle(const QByteArray& frame) const;
    /// Addresses are written as ATD has them, without colons. foreignAddress(): another than this one.
    std::optional<int> findAddress(const QByteArray& address) const;
    QByteArray foreignAddress(const QByteArray& address) const;

    void step(qint64 atUs);
    void takeUpFrame(qint64 atUs);
    void dropEverything();
    void leaveRange(int index, qint64 backUs);
    void comeBack(qint64 atUs);
    void babble(qint64 atUs);
    void answerFrame(qint64 atUs);
    void passToWrench(qint64 atUs);
    void startScan(qint64 atUs);
    void hangUp(qint64 atUs);
    void dial(const QByteArray& address, bool echoesAnother, qint64 atUs);
    void finishDialling(qint64 atUs);
    void reportWrenches(qint64 atUs);
    void sendResults(qint64 atUs);
    void report(const Station& station, const QByteArray& address, qint64 atUs);
    void send(const QByteArray& line, qint64 atUs);

    Settings m_settings;
    std::vector<Station> m_stations;
    NoteSink m_note;
    FaultInjector m_faults;
    LineCutter m_cutter{"\r\n"};
    OutputQueue m_output;

    Babbler m_flood{Babbler::Kind::Lines};
    Babbler m_endless{Babbler::Kind::Endless};

    qint64 m_nowUs = 0;
    std::optional<qint64> m_firstFrameUs;
    std::deque<QByteArray> m_waiting;
    std::optional<FrameInHand> m_inHand;
    std::optional<qint64> m_nextReportUs; ///< set while scanning
    std::optional<Dialling> m_dialling;
    std::optional<int> m_link;
    std::optional<int> m_lastLink;
    std::optional<int> m_unplugMs;
};
