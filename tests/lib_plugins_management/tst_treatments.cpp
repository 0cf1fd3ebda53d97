#include <QSignalSpy>
#include <QTest>

#include "recording_backend.h"
#include "workbench.h"

namespace {

const QString c_lock = QStringLiteral("setLock");
const QString c_select = QStringLiteral("setProgram");
const QString c_value = QStringLiteral("value");
const QString c_success = QStringLiteral("cmd_success");
Values failure()
{
    return {{c_success, false}};
}

} // namespace

/// What becomes of the treatments that panel backends queue.
class TstTreatments : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void treatmentIsRefusedWithoutADevice();
    void treatmentIsRefusedWithoutAHost();
    void treatmentIsAnsweredWithItsIndexAndName();
    void replyHoldsTheResultsOfTheCommand();
    void replyIsNotGivenInsideTheCall();
    void parametersReachTheCommand();
    void treatmentsRunOneAtATimeAndInOrder();
    void treatmentQueuedWhileAnotherRunsLeavesThatAlone();
    void treatmentsOfTwoBackendsShareTheDevicesLine();
    void treatmentsOfTwoDevicesDoNotWaitForEachOther();
    void unknownTreatmentIsAnsweredFailure();
    void unknownTreatmentsKeepTheOrder();
    void refusedTreatmentIsAnsweredFailure();
    void treatmentThatDoesNotEndIsEnded();
    void pendingUntilTheReply();
    void replyMayQueueTheNext();
    void replyMayDestroyTheBackend();

    void deviceIsFoundWhicheverHostHasIt();
    void deviceIsFoundAlsoWhenANewerHostHasGone();
    void connectionIsThatOfTheOwnDevice();
    void deviceDestroyedAnswersEachPendingTreatment();
    void answerUnderWayIsNotTakenForTheNextDevices();
    void hostDestroyedAnswersEachPendingTreatment();
    void backendDestroyedWithPendingTreatments();
    void deviceDestroyedByItsOwnTreatment();

private:
    void attach(RecordingBackend& backend);

    std::unique_ptr<Workbench> m_bench;
    ScriptPointer m_lock;   // ends when the test makes it
    ScriptPointer m_select; // ends at once
};

void TstTreatments::init()
{
    m_bench = std::make_unique<Workbench>();
    m_lock = m_bench->deviceRoot.addCommand(c_lock);
    m_select = m_bench->deviceRoot.addCommand(c_select);
    m_select->execute = [](ScriptedCommand& command) {
        return command.commandUpdateResults({{c_success, true}, {c_value, command.getParameterValue(c_value, 0)}});
    };
    m_bench->set();
}

void TstTreatments::cleanup()
{
    m_bench.reset();
    Workbench::settle();
}

void TstTreatments::attach(RecordingBackend& backend)
{
    backend.setObjectId(m_bench->device->objectUuid().toString());
    Workbench::settle();
}

void TstTreatments::treatmentIsRefusedWithoutADevice()
{
    RecordingBackend backend;
    QVERIFY(!backend.queueTreatment(0, c_select, {}));
    Workbench::settle();
    QVERIFY(backend.heard.isEmpty());
    QVERIFY(!backend.hasPendingTreatments());
}

void TstTreatments::treatmentIsRefusedWithoutAHost()
{
    RecordingBackend backend;
    attach(backend);
    m_bench->host.reset();
    QVERIFY(!backend.queueTreatment(0, c_select, {}));
}

void TstTreatments::treatmentIsAnsweredWithItsIndexAndName()
{
    RecordingBackend backend;
    attach(backend);
    QVERIFY(backend.queueTreatment(200, c_select, {}));
    Workbench::settle();
    QCOMPARE(backend.heard, QStringList({QStringLiteral("200 setProgram true"), QStringLiteral("released 200")}));
}

void TstTreatments::replyHoldsTheResultsOfTheCommand()
{
    RecordingBackend backend;
    attach(backend);
    backend.queueTreatment(0, c_select, {{c_value, 5}});
    Workbench::settle();
    QCOMPARE(backend.replies, QList<Values>({{{c_success, true}, {c_value, 5}}}));
}

void TstTreatments::replyIsNotGivenInsideTheCall()
{
    RecordingBackend backend;
    attach(backend);
    backend.queueTreatment(0, c_select, {});
    backend.queueTreatment(1, QStringLiteral("fly"), {});
    QVERIFY(backend.heard.isEmpty());
}

void TstTreatments::parametersReachTheCommand()
{
    RecordingBackend backend;
    attach(backend);
    const Values parameters{{QStringLiteral("lock"), true}};
    backend.queueTreatment(0, c_lock, parameters);
    Workbench::settle();
    QCOMPARE(m_lock->arguments, QList<Values>({parameters}));
}

void TstTreatments::treatmentsRunOneAtATimeAndInOrder()
{
    RecordingBackend backend;
    attach(backend);
    backend.queueTreatment(1, c_lock, {});
    backend.queueTreatment(2, c_select, {});
    backend.queueTreatment(3, c_lock, {});
    Workbench::settle();
    QCOMPARE(m_lock->executed, 1);
    QCOMPARE(m_select->executed, 0);
    bool ok = true;
    m_lock->last->commandFinish(ok);
    Workbench::settle();
    QCOMPARE(m_select->executed, 1);
    QCOMPARE(m_lock->executed, 2);
    m_lock->last->commandFinish(ok);
    Workbench::settle();
    QCOMPARE(backend.heard.filter(QStringLiteral("released")),
             QStringList({QStringLiteral("released 1"), QStringLiteral("released 2"), QStringLiteral("released 3")}));
}

void TstTreatments::treatmentQueuedWhileAnotherRunsLeavesThatAlone()
{
    RecordingBackend backend;
    attach(backend);
    backend.queueTreatment(1, c_lock, {});
    Workbench::settle();
    backend.queueTreatment(2, c_select, {});
    Workbench::settle();
    QCOMPARE(m_lock->executed, 1);
    QCOMPARE(m_lock->finished, 0);
    QVERIFY(backend.heard.isEmpty());
}

void TstTreatments::treatmentsOfTwoBackendsShareTheDevicesLine()
{
    RecordingBackend first;
    RecordingBackend second;
    attach(first);
    attach(second);
    first.queueTreatment(1, c_lock, {});
    second.queueTreatment(2, c_select, {});
    Workbench::settle();
    QCOMPARE(m_select->executed, 0);
    bool ok = true;
    m_lock->last->commandFinish(ok);
    Workbench::settle();
    QCOMPARE(first.replies.size(), 1);
    QCOMPARE(second.heard, QStringList({QStringLiteral("2 setProgram true"), QStringLiteral("released 2")}));
}

void TstTreatments::treatmentsOfTwoDevicesDoNotWaitForEachOther()
{
    const DAbstractPlugin* other = m_bench->host->createInstance(m_bench->deviceRoot, QUuid::createUuid());
    RecordingBackend first;
    RecordingBackend second;
    attach(first);
    second.setObjectId(other->objectUuid().toString());
    first.queueTreatment(1, c_lock, {});
    second.queueTreatment(2, c_select, {});
    Workbench::settle();
    QCOMPARE(second.replies.size(), 1);
}

void TstTreatments::unknownTreatmentIsAnsweredFailure()
{
    RecordingBackend backend;
    attach(backend);
    QVERIFY(backend.queueTreatment(300, QStringLiteral("setDirection"), {}));
    Workbench::settle();
    QCOMPARE(backend.heard, QStringList({QStringLiteral("300 setDirection false"), QStringLiteral("released 300")}));
    QCOMPARE(backend.replies, QList<Values>({failure()}));
}

void TstTreatments::unknownTreatmentsKeepTheOrder()
{
    RecordingBackend backend;
    attach(backend);
    backend.queueTreatment(1, QStringLiteral("fly"), {});
    backend.queueTreatment(2, c_select, {});
    backend.queueTreatment(3, QStringLiteral("swim"), {});
    Workbench::settle();
    QCOMPARE(backend.heard.filter(QStringLiteral("released")),
             QStringList({QStringLiteral("released 1"), QStringLiteral("released 2"), QStringLiteral("released 3")}));
}

void TstTreatments::refusedTreatmentIsAnsweredFailure()
{
    m_lock->execute = [](ScriptedCommand&) { return false; };
    RecordingBackend backend;
    attach(backend);
    backend.queueTreatment(100, c_lock, {});
    Workbench::settle();
    QCOMPARE(backend.replies, QList<Values>({failure()}));
}

void TstTreatments::treatmentThatDoesNotEndIsEnded()
{
    RecordingBackend backend;
    attach(backend);
    backend.queueTreatment(100, c_lock, {});
    backend.queueTreatment(200, c_select, {});
    Workbench::settle();
    m_bench->clock.advance(14999);
    Workbench::settle();
    QVERIFY(backend.heard.isEmpty());
    m_bench->clock.advance(1);
    Workbench::settle();
    QCOMPARE(backend.heard.value(0), QStringLiteral("100 setLock false"));
    QCOMPARE(backend.heard.value(2), QStringLiteral("200 setProgram true"));
}

void TstTreatments::pendingUntilTheReply()
{
    RecordingBackend backend;
    attach(backend);
    QVERIFY(!backend.hasPendingTreatments());
    backend.queueTreatment(1, c_select, {});
    backend.queueTreatment(2, c_lock, {});
    QVERIFY(backend.hasPendingTreatments());
    Workbench::settle();
    QVERIFY(backend.hasPendingTreatments());
    bool ok = true;
    m_lock->last->commandFinish(ok);
    Workbench::settle();
    QVERIFY(!backend.hasPendingTreatments());
}

void TstTreatments::replyMayQueueTheNext()
{
    RecordingBackend backend;
    attach(backend);
    backend.onReply = [&] {
        if (backend.replies.size() < 3) {
            QVERIFY(backend.queueTreatment(backend.replies.size(), c_select, {}));
        }
    };
    backend.queueTreatment(0, c_select, {});
    Workbench::settle();
    QCOMPARE(backend.replies.size(), 3);
    QVERIFY(!backend.hasPendingTreatments());
}

void TstTreatments::replyMayDestroyTheBackend()
{
    auto backend = std::make_unique<RecordingBackend>();
    attach(*backend);
    backend->onReply = [&] { backend.reset(); };
    backend->queueTreatment(0, c_select, {});
    backend->queueTreatment(1, c_select, {});
    Workbench::settle();
    QVERIFY(backend == nullptr);
    QCOMPARE(m_select->executed, 2); // accepted, so done
}

void TstTreatments::deviceIsFoundWhicheverHostHasIt()
{
    Workbench other; // a second window's device, say; its host is the newer one
    const ScriptPointer select = other.deviceRoot.addCommand(c_select);
    select->execute = [](ScriptedCommand& command) { return command.commandUpdateResults({{c_success, true}}); };
    other.set();
    RecordingBackend ofFirst;
    attach(ofFirst);
    RecordingBackend ofSecond;
    ofSecond.setObjectId(other.device->objectUuid().toString());
    Workbench::settle();
    QVERIFY(ofFirst.queueTreatment(1, c_select, {}));
    QVERIFY(ofSecond.queueTreatment(2, c_select, {}));
    Workbench::settle();
    QCOMPARE(m_select->executed, 1);
    QCOMPARE(select->executed, 1);
    QCOMPARE(ofFirst.heard.constFirst(), QStringLiteral("1 setProgram true"));
    QCOMPARE(ofSecond.heard.constFirst(), QStringLiteral("2 setProgram true"));
}

void TstTreatments::deviceIsFoundAlsoWhenANewerHostHasGone()
{
    {
        const Workbench other;
    }
    RecordingBackend backend;
    attach(backend);
    QVERIFY(backend.queueTreatment(1, c_select, {}));
    Workbench::settle();
    QCOMPARE(m_select->executed, 1);
}

void TstTreatments::connectionIsThatOfTheOwnDevice()
{
    Workbench other;
    other.set();
    RecordingBackend backend;
    attach(backend);
    other.driver->setProperty(QStringLiteral("connected"), true, false);
    Workbench::settle();
    QVERIFY(!backend.isConnected());
    m_bench->driver->setProperty(QStringLiteral("connected"), true, false);
    Workbench::settle();
    QVERIFY(backend.isConnected());
}

void TstTreatments::deviceDestroyedAnswersEachPendingTreatment()
{
    RecordingBackend backend;
    attach(backend);
    backend.queueTreatment(1, c_lock, {});
    backend.queueTreatment(2, c_select, {});
    backend.queueTreatment(3, QStringLiteral("fly"), {});
    Workbench::settle();
    delete m_bench->device;
    QVERIFY(backend.heard.isEmpty());
    Workbench::settle();
    QCOMPARE(backend.heard, QStringList({QStringLiteral("1 setLock false"), QStringLiteral("released 1"),
                                         QStringLiteral("2 setProgram false"), QStringLiteral("released 2"),
                                         QStringLiteral("3 fly false"), QStringLiteral("released 3")}));
    QVERIFY(!backend.hasPendingTreatments());
    QVERIFY(!backend.queueTreatment(4, c_select, {}));
}

void TstTreatments::answerUnderWayIsNotTakenForTheNextDevices()
{
    // The answer to "fly" is under way when its device goes and another comes at the same address.
    DInstanceRegistry registry;
    DRouter router(m_bench->clock, registry);
    DTreatmentQueue queue(router, registry);
    RecordingBackend backend;
    queue.queue(backend, *m_bench->device, 1, QStringLiteral("fly"), {});
    queue.pluginDestroyed(*m_bench->device);
    queue.queue(backend, *m_bench->device, 2, c_lock, {});
    Workbench::settle();
    QCOMPARE(backend.heard, QStringList({QStringLiteral("1 fly false"), QStringLiteral("released 1")}));
    queue.pluginDestroyed(*m_bench->device);
}

void TstTreatments::hostDestroyedAnswersEachPendingTreatment()
{
    RecordingBackend backend;
    attach(backend);
    backend.queueTreatment(1, c_lock, {});
    backend.queueTreatment(2, c_select, {});
    Workbench::settle();
    m_bench->host.reset();
    Workbench::settle();
    QCOMPARE(backend.replies, QList<Values>({failure(), failure()}));
}

void TstTreatments::backendDestroyedWithPendingTreatments()
{
    auto backend = std::make_unique<RecordingBackend>();
    RecordingBackend other;
    attach(*backend);
    attach(other);
    backend->queueTreatment(1, c_lock, {});
    backend->queueTreatment(2, QStringLiteral("fly"), {});
    other.queueTreatment(3, c_select, {});
    Workbench::settle();
    backend.reset();
    bool ok = true;
    m_lock->last->commandFinish(ok);
    Workbench::settle();
    QCOMPARE(other.replies.size(), 1);
}

void TstTreatments::deviceDestroyedByItsOwnTreatment()
{
    m_lock->execute = [&](ScriptedCommand&) {
        delete m_bench->device;
        return true;
    };
    RecordingBackend backend;
    attach(backend);
    backend.queueTreatment(1, c_lock, {});
    backend.queueTreatment(2, c_select, {});
    Workbench::settle();
    QCOMPARE(backend.replies, QList<Values>({failure(), failure()}));
}

QTEST_GUILESS_MAIN(TstTreatments)
#include "tst_treatments.moc"
