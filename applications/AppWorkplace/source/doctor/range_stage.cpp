#include "range_stage.h"

#include "line_words.h"

namespace {

constexpr int c_hangUpLimitMs = 1500;

QString fieldOf(const QVariant& wrench, const char* key)
{
    return wrench.toMap().value(QLatin1String(key)).toString();
}

/// "2210 (02:00:00:00:00:01, -61 dBm), …"
QString described(const QVariantList& wrenches)
{
    QStringList texts;
    for (const QVariant& wrench : wrenches) {
        texts.append(QStringLiteral("%1 (%2, %3 dBm)")
                         .arg(fieldOf(wrench, "sn"), fieldOf(wrench, "mac"), fieldOf(wrench, "rssi")));
    }
    return texts.join(QStringLiteral(", "));
}

} // namespace

RangeStage::RangeStage(DoctorBench& bench)
    : DoctorStage({QStringLiteral("range"), tr("the wrench is in range, once, with a good signal"),
                   tr("ATH to the dongle, which ends the search")},
                  Problem::Kind::Device, bench)
{}

void RangeStage::start()
{
    if (m_bench.holdsALink) {
        skip(tr("a dongle that keeps a link does not search, and does not say to which wrench the link is"));
        return;
    }
    m_bench.talk.ask(
        {}, m_bench.order.scanMs, [](const QString&) { return false; }, [this](LineTalk::End) { endSearch(); });
}

void RangeStage::endSearch()
{
    m_bench.talk.ask(
        line_words::c_hangUp, limitMs(c_hangUpLimitMs),
        [](const QString& line) { return line == line_words::c_hangUp; },
        [this](LineTalk::End end) {
            if (end == LineTalk::End::NotWritten) {
                failUnwritten();
            } else {
                judge();
            }
        });
}

QVariantList RangeStage::heardOf(const QString& serialId) const
{
    QVariantList found;
    const QVariantList heard = m_bench.heard.strongestFirst();
    for (const QVariant& wrench : heard) {
        if (fieldOf(wrench, "sn") == serialId) {
            found.append(wrench);
        }
    }
    return found;
}

void RangeStage::judge()
{
    const QString near = tr("switch the wrench on and bring it near the dongle");
    const QVariantList heard = m_bench.heard.strongestFirst();
    if (m_bench.order.serialId.isEmpty() && heard.isEmpty()) {
        fail(tr("no wrench is in range"), {}, near);
        return;
    }
    if (m_bench.order.serialId.isEmpty() && heard.size() > 1) {
        fail(tr("which wrench is to be examined is not said, and several are in range"), described(heard),
             QStringLiteral("app_workplace doctor --port %1 --serial-id %2")
                 .arg(m_bench.order.port, fieldOf(heard.constFirst(), "sn")));
        return;
    }
    m_bench.serialId = m_bench.order.serialId.isEmpty() ? fieldOf(heard.constFirst(), "sn") : m_bench.order.serialId;
    const QVariantList found = heardOf(m_bench.serialId);
    if (found.isEmpty()) {
        fail(tr("the wrench %1 is not in range").arg(m_bench.serialId),
             heard.isEmpty() ? tr("no wrench was heard") : tr("only these were heard: %1").arg(described(heard)),
             heard.isEmpty() ? near : tr("%1, or check the serial number").arg(near));
    } else if (found.size() > 1) {
        fail(tr("%1 wrenches answer to the serial number %2").arg(found.size()).arg(m_bench.serialId), described(found),
             tr("switch off all but one of them, and have the others given serial numbers of their own"));
    } else {
        judge(found.constFirst().toMap());
    }
}

void RangeStage::judge(const QVariantMap& wrench)
{
    m_bench.address = fieldOf(wrench, "mac").remove(QLatin1Char(':'));
    bool isNumber = false;
    const int strengthDbm = fieldOf(wrench, "rssi").toInt(&isNumber);
    if (isNumber && strengthDbm < c_weakestGoodDbm) {
        fail(tr("the signal of the wrench %1 is weak: %2 dBm").arg(m_bench.serialId).arg(strengthDbm),
             tr("below %1 dBm frames get lost").arg(c_weakestGoodDbm),
             tr("bring wrench and dongle nearer to each other, with nothing of metal between them"));
    } else {
        pass(tr("the wrench %1 is heard with %2 dBm").arg(m_bench.serialId, fieldOf(wrench, "rssi")));
    }
}
