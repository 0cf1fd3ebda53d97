#include "fault_injector.h"

#include <algorithm>

namespace {
constexpr qint64 c_usPerMs = 1000;
constexpr double c_percent = 100.0;
constexpr int c_byteValues = 256;
constexpr int c_lineEndBytes = 2;
constexpr int c_maxDoubledBytes = 4096; ///< however many faults double, a line does not grow without end

/// A whole number from low to high, both included.
int wholeNumber(RandomSource& random, int low, int high)
{
    return low + static_cast<int>(random.between(0., 1. + high - low));
}

char anyByte(RandomSource& random, int lowest)
{
    return static_cast<char>(static_cast<quint8>(wholeNumber(random, lowest, c_byteValues - 1)));
}

void cut(QByteArray& bytes, int keptBytes, RandomSource& random)
{
    const int text = std::max(bytes.size() - c_lineEndBytes, 0);
    bytes.truncate(keptBytes > 0 ? std::min(keptBytes, text) : wholeNumber(random, 1, std::max(text - 1, 1)));
}

void flip(QByteArray& bytes, int count, RandomSource& random)
{
    for (int i = 0; i < std::min(count, bytes.size()); ++i) {
        const int at = wholeNumber(random, 0, bytes.size() - 1);
        bytes[at] = static_cast<char>(bytes.at(at) ^ anyByte(random, 1)); // with 0 it would stay as it is
    }
}

void prependGarbage(QByteArray& bytes, int count, RandomSource& random)
{
    QByteArray garbage;
    for (int i = 0; i < count; ++i) {
        garbage.append(anyByte(random, 0));
    }
    bytes.prepend(garbage);
}
} // namespace

FaultInjector::FaultInjector(const RandomSource& random) : m_random(random) {}

bool FaultInjector::add(const Fault& fault)
{
    if (m_entries.size() == c_maxFaults) {
        return false;
    }
    const int number = ++m_timesSet[fault.text];
    const QByteArray name = "fault " + fault.text.toUtf8() + ' ' + QByteArray::number(number);
    m_entries.push_back({fault, m_random.stream(name + " dice"), m_random.stream(name + " invention")});
    return true;
}

int FaultInjector::remove(const QString& name)
{
    const auto end = std::remove_if(m_entries.begin(), m_entries.end(),
                                    [&name](const Entry& entry) { return entry.fault.isCalled(name); });
    const auto count = static_cast<int>(std::distance(end, m_entries.end()));
    m_entries.erase(end, m_entries.end());
    return count;
}

void FaultInjector::clear()
{
    m_entries.clear();
}

QStringList FaultInjector::describe() const
{
    QStringList texts;
    for (const Entry& entry : m_entries) {
        texts.append(QStringLiteral("%1 (struck %2 times)").arg(entry.fault.text, QString::number(entry.strikes)));
    }
    return texts;
}

bool FaultInjector::strikes(Entry& entry)
{
    const Fault& fault = entry.fault;
    bool isHit = true;
    switch (fault.trigger) {
    case Fault::Trigger::Always:
        break;
    case Fault::Trigger::AtFrame:
        isHit = entry.frames == fault.frame;
        break;
    case Fault::Trigger::FromFrame:
        isHit = entry.frames >= fault.frame;
        break;
    case Fault::Trigger::Chance:
        isHit = entry.dice.between(0., c_percent) < fault.percent;
        break;
    }
    entry.strikes += isHit ? 1 : 0;
    return isHit;
}

Disturbance FaultInjector::frameTakenUp()
{
    Disturbance result;
    for (Entry& entry : m_entries) {
        ++entry.frames;
        const Fault& fault = entry.fault;
        if (fault.isAboutLines() || !strikes(entry)) {
            continue;
        }
        const qint64 waitUs = fault.waitMs * c_usPerMs;
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
        case Fault::Kind::Echo:
            result.isEchoed = true;
            break;
        case Fault::Kind::ForeignEcho:
            result.hasForeignEcho = true;
            break;
        case Fault::Kind::OutOfRange:
            result.leave = Leave{fault.serial, waitUs};
            break;
        case Fault::Kind::LoseLink:
            result.losesLink = true;
            break;
        case Fault::Kind::Unplug:
            result.unplugMs = fault.number;
            break;
        case Fault::Kind::Flood:
            result.flood = Babble{fault.number, waitUs};
            break;
        case Fault::Kind::Endless:
            result.endless = Babble{fault.number, waitUs};
            break;
        default:
            break; // about lines
        }
    }
    return result;
}

DisturbedLine FaultInjector::disturb(const QByteArray& line)
{
    DisturbedLine result{line + "\r\n", {}};
    for (Entry& entry : m_entries) {
        const Fault& fault = entry.fault;
        if (!fault.isAboutLines() || fault.kind == Fault::Kind::DuplicateSerial || !strikes(entry)) {
            continue;
        }
        switch (fault.kind) {
        case Fault::Kind::Split:
            result.shape.pieceBytes = fault.number;
            result.shape.pieceGapUs = fault.waitMs * c_usPerMs;
            break;
        case Fault::Kind::Glue:
            result.shape.gluedLines = fault.number;
            result.shape.glueWaitUs = fault.waitMs * c_usPerMs;
            break;
        case Fault::Kind::Cut:
            cut(result.bytes, fault.number, entry.invention);
            break;
        case Fault::Kind::Flip:
            flip(result.bytes, fault.number, entry.invention);
            break;
        case Fault::Kind::Double:
            if (result.bytes.size() <= c_maxDoubledBytes) {
                result.bytes += result.bytes;
            }
            break;
        case Fault::Kind::Garbage:
            prependGarbage(result.bytes, fault.number, entry.invention);
            break;
        case Fault::Kind::LowerCase:
            result.bytes = result.bytes.toLower();
            break;
        default:
            break; // about frames
        }
    }
    return result;
}

bool FaultInjector::hasTwin(const QByteArray& serial)
{
    bool result = false;
    for (Entry& entry : m_entries) {
        if (entry.fault.kind == Fault::Kind::DuplicateSerial &&
            (entry.fault.serial.isEmpty() || entry.fault.serial == serial) && strikes(entry)) {
            result = true;
        }
    }
    return result;
}
