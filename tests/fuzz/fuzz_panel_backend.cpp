#include "fuzz_check.h"
#include "fuzz_input.h"
#include "fuzz_targets.h"

#include <QAbstractItemModelTester>

#include "be_maintenance_plugin.h"
#include "log_capture.h"
#include "workbench.h"

namespace {

/// The backend in a host that says what became of each treatment.
class CountingBackend : public BeMaintenanceDeviceHaitor
{
public:
    bool applyTreatmentReply(int index, const QString& treatment, const QMap<QString, QVariant>& reply) override
    {
        ++replies;
        return BeMaintenanceDeviceHaitor::applyTreatmentReply(index, treatment, reply);
    }
    void treatmentReleased(int) override { ++released; }

    int replies = 0;
    int released = 0;
};

QVariant anyValue(FuzzInput& input)
{
    switch (input.number(0, 7)) {
    case 0:
        return input.flag();
    case 1:
        return input.number(-128, 127);
    case 2:
        return QVariantList{input.number(-128, 127)};
    case 3:
        return QVariantList{QString::fromUtf8(input.until('\n')), 1};
    case 4:
        return QVariantMap{{QStringLiteral("id"), QString::fromUtf8(input.until('\n'))}};
    case 5:
        return QString::fromUtf8(input.until('\n'));
    case 6:
        return QStringList{QString::fromUtf8(input.until('\n'))};
    default:
        return {};
    }
}

void addChannel(CountingBackend& backend, FuzzInput& input)
{
    static const QStringList ids{QStringLiteral("direction"), QStringLiteral("motorRun"), QStringLiteral("other")};
    const QVariantMap attribute{{QStringLiteral("id"), input.flag() ? QStringLiteral("type") : QString()},
                                {QStringLiteral("value"), anyValue(input)}};
    const auto channel = DHaitorChannel::create({{QStringLiteral("id"), ids.at(input.number(0, 2))},
                                                 {QStringLiteral("name"), anyValue(input)},
                                                 {QStringLiteral("value"), QVariantList{attribute, anyValue(input)}}});
    channel->setReadCommand(input.flag() ? QStringLiteral("getRegister") : QString());
    backend.statusChannelsModel()->append(channel);
}

} // namespace

/// The panel's backend on a real host, called in any order with any values: each treatment that the host has accepted
/// is answered and released once, and positions without a channel are told, not used.
void fuzz::panel_backend(const QByteArray& bytes)
{
    const LogCapture log;
    FuzzInput input(bytes);
    Workbench bench;
    for (const char* name : {"setLock", "setProgram", "getRegister", "setDirection"}) {
        const ScriptPointer script = bench.deviceRoot.addCommand(QLatin1String(name));
        script->execute = [](ScriptedCommand& command) {
            return command.commandUpdateResults({{QStringLiteral("cmd_success"), true}});
        };
    }
    bench.set();
    CountingBackend backend;
    QAbstractItemModelTester tester(backend.statusChannelsModel(),
                                    QAbstractItemModelTester::FailureReportingMode::Fatal);
    constexpr int c_mostCalls = 100;
    constexpr int c_mostChannels = 20;
    for (int call = 0; call < c_mostCalls && !input.isAtEnd(); ++call) {
        switch (input.number(0, 11)) {
        case 0:
            backend.setObjectId(input.flag() ? bench.device->objectUuid().toString()
                                             : QString::fromUtf8(input.until('\n')));
            break;
        case 1:
            backend.setLock(input.flag());
            break;
        case 2:
            backend.setProgram(QString::fromUtf8(input.until('\n')));
            break;
        case 3:
            backend.setDirection(input.flag());
            break;
        case 4:
            backend.updateChannelsValue();
            break;
        case 5:
            backend.clickedOnChannel(input.number(-2, 20));
            break;
        case 6:
            if (backend.statusChannelsModel()->count() < c_mostChannels) {
                addChannel(backend, input);
            }
            break;
        case 7:
            backend.resetBackend();
            break;
        case 8: {
            const QString treatment = input.flag() ? QStringLiteral("getRegister") : QStringLiteral("setLock");
            const int index = input.number(-2, 20);
            const QVariant value = anyValue(input);
            const bool isDone = backend.BeMaintenanceDeviceHaitor::applyTreatmentReply(
                index, treatment, {{QStringLiteral("cmd_success"), value}});
            const bool isThere = index >= 0 && index < backend.statusChannelsModel()->count();
            FUZZ_CHECK(treatment == QLatin1String("setLock") ? isDone == value.toBool() : isThere || !isDone);
            break;
        }
        case 9:
            Workbench::turn();
            break;
        case 10:
            bench.clock.advance(qint64{100} * input.number(0, 200));
            break;
        default:
            FUZZ_CHECK(backend.getChannelAt(-1).isNull());
            FUZZ_CHECK(backend.getChannelAt(backend.statusChannelsModel()->count()).isNull());
            backend.statusChannelsModel()->item(input.number(-2, 20));
        }
        FUZZ_CHECK(backend.released <= backend.replies);
    }
    // Whatever was accepted is answered in time.
    constexpr int c_enoughRounds = 200;
    for (int round = 0; round < c_enoughRounds && backend.hasPendingTreatments(); ++round) {
        Workbench::settle();
        bench.clock.advance(20000);
    }
    FUZZ_CHECK(!backend.hasPendingTreatments());
    FUZZ_CHECK(backend.released == backend.replies);
}
