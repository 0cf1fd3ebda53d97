#include <QSignalSpy>
#include <QTest>

#include "recording_backend.h"
#include "workbench.h"

/// Panel backends: how they find their device, and whether it is connected.
class TstPanelBackend : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void deviceIsFoundByItsObjectId();
    void initialisedOnceAndFromALaterTurn();
    void deviceThatAppearsLaterIsFound();
    void initialisedOnceWhenTheObjectIdChangesAtOnce();
    void deviceThatGoesAtOnceIsNotAnnounced();
    void unknownObjectIdHasNoDevice_data();
    void unknownObjectIdHasNoDevice();
    void propertiesAreAnnouncedOnChange();
    void connectionFollowsTheDriver();
    void connectionIsLostWithTheDriver();
    void connectionIsLostWithTheDevice();
    void connectionFollowsTheLink();

private:
    void attach(RecordingBackend& backend);

    std::unique_ptr<Workbench> m_bench;
};

namespace {
const QString c_select = QStringLiteral("setProgram");
}

void TstPanelBackend::init()
{
    m_bench = std::make_unique<Workbench>();
    m_bench->deviceRoot.addCommand(c_select);
    m_bench->set();
}

void TstPanelBackend::attach(RecordingBackend& backend)
{
    backend.setObjectId(m_bench->device->objectUuid().toString());
    Workbench::settle();
}

void TstPanelBackend::deviceIsFoundByItsObjectId()
{
    RecordingBackend backend;
    const QSignalSpy spy(&backend, &DAbstractPluginBackend::abstractBackendInitialized);
    attach(backend);
    QCOMPARE(spy.size(), 1);
    QVERIFY(backend.queueTreatment(0, c_select, {}));
}

void TstPanelBackend::initialisedOnceAndFromALaterTurn()
{
    RecordingBackend backend;
    const QSignalSpy spy(&backend, &DAbstractPluginBackend::abstractBackendInitialized);
    backend.setObjectId(m_bench->device->objectUuid().toString());
    QCOMPARE(spy.size(), 0);
    Workbench::settle();
    QCOMPARE(spy.size(), 1);
    m_bench->host->createInstance(m_bench->deviceRoot, QUuid::createUuid());
    backend.setObjectId(m_bench->device->objectUuid().toString());
    Workbench::settle();
    QCOMPARE(spy.size(), 1);
}

void TstPanelBackend::deviceThatAppearsLaterIsFound()
{
    RecordingBackend backend;
    const QSignalSpy spy(&backend, &DAbstractPluginBackend::abstractBackendInitialized);
    const QUuid uuid = QUuid::createUuid();
    backend.setObjectId(uuid.toString());
    Workbench::settle();
    QCOMPARE(spy.size(), 0);
    m_bench->host->createInstance(m_bench->deviceRoot, uuid);
    QCOMPARE(spy.size(), 0);
    Workbench::settle();
    QCOMPARE(spy.size(), 1);
    QVERIFY(backend.queueTreatment(0, c_select, {}));
}

void TstPanelBackend::initialisedOnceWhenTheObjectIdChangesAtOnce()
{
    const DAbstractPlugin* other = m_bench->host->createInstance(m_bench->deviceRoot, QUuid::createUuid());
    RecordingBackend backend;
    const QSignalSpy spy(&backend, &DAbstractPluginBackend::abstractBackendInitialized);
    backend.setObjectId(other->objectUuid().toString());
    attach(backend);
    QCOMPARE(spy.size(), 1);
}

void TstPanelBackend::deviceThatGoesAtOnceIsNotAnnounced()
{
    RecordingBackend backend;
    const QSignalSpy spy(&backend, &DAbstractPluginBackend::abstractBackendInitialized);
    backend.setObjectId(m_bench->device->objectUuid().toString());
    delete m_bench->device;
    Workbench::settle();
    QCOMPARE(spy.size(), 0);
}

void TstPanelBackend::unknownObjectIdHasNoDevice_data()
{
    QTest::addColumn<QString>("objectId");
    QTest::newRow("none") << QString();
    QTest::newRow("no uuid") << QStringLiteral("wrench 1");
    QTest::newRow("null") << QUuid().toString();
    QTest::newRow("somebody else's") << QUuid::createUuid().toString();
}

void TstPanelBackend::unknownObjectIdHasNoDevice()
{
    QFETCH(QString, objectId);
    RecordingBackend backend;
    attach(backend);
    backend.setObjectId(objectId); // also takes back what was found before
    QVERIFY(!backend.queueTreatment(0, c_select, {}));
    QVERIFY(!backend.isConnected());
}

void TstPanelBackend::propertiesAreAnnouncedOnChange()
{
    RecordingBackend backend;
    const QSignalSpy name(&backend, &DAbstractPluginBackend::nameChanged);
    const QSignalSpy objectId(&backend, &DAbstractPluginBackend::objectIdChanged);
    const QSignalSpy reference(&backend, &DAbstractPluginBackend::referenceChanged);
    for (int i = 0; i < 2; ++i) {
        QVERIFY(backend.setProperty("name", QStringLiteral("a")));
        QVERIFY(backend.setProperty("objectId", QStringLiteral("b")));
        QVERIFY(backend.setProperty("reference", QStringLiteral("c")));
    }
    QCOMPARE(name.size(), 1);
    QCOMPARE(objectId.size(), 1);
    QCOMPARE(reference.size(), 1);
    QCOMPARE(backend.name(), QStringLiteral("a"));
    QCOMPARE(backend.objectId(), QStringLiteral("b"));
    QCOMPARE(backend.reference(), QStringLiteral("c"));
    QCOMPARE(backend.objectName(), QStringLiteral("Panel"));
}

void TstPanelBackend::connectionFollowsTheDriver()
{
    RecordingBackend backend;
    attach(backend);
    const QSignalSpy spy(&backend, &DAbstractPluginBackend::isConnectedChanged);
    QVERIFY(!backend.isConnected());
    m_bench->driver->setProperty(QStringLiteral("connected"), true, false);
    QVERIFY(backend.isConnected());
    m_bench->device->setProperty(QStringLiteral("connected"), false, false); // the device's own says nothing
    QVERIFY(backend.isConnected());
    m_bench->driver->setProperty(QStringLiteral("connected"), false, false);
    QVERIFY(!backend.isConnected());
    QCOMPARE(spy.size(), 2);
}

void TstPanelBackend::connectionIsLostWithTheDriver()
{
    RecordingBackend backend;
    attach(backend);
    m_bench->driver->setProperty(QStringLiteral("connected"), true, false);
    const QSignalSpy spy(&backend, &DAbstractPluginBackend::isConnectedChanged);
    delete m_bench->driver;
    QVERIFY(!backend.isConnected());
    QCOMPARE(spy.size(), 1);
}

void TstPanelBackend::connectionIsLostWithTheDevice()
{
    RecordingBackend backend;
    attach(backend);
    m_bench->driver->setProperty(QStringLiteral("connected"), true, false);
    delete m_bench->device;
    QVERIFY(!backend.isConnected());
}

void TstPanelBackend::connectionFollowsTheLink()
{
    auto* other = m_bench->host->createInstance(m_bench->driverRoot, QUuid::createUuid());
    other->setProperty(QStringLiteral("connected"), true, false);
    RecordingBackend backend;
    attach(backend);
    QVERIFY(!backend.isConnected());
    m_bench->host->linkDriver(*m_bench->device, *other);
    QVERIFY(backend.isConnected());
}

QTEST_GUILESS_MAIN(TstPanelBackend)
#include "tst_panel_backend.moc"
