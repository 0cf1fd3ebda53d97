#include <QMetaProperty>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

#include "be_maintenance_plugin.h"
#include "log_capture.h"

namespace {

using Queued = QList<QueuedTreatment>;

const QString c_setLock = QStringLiteral("setLock");
const QString c_setProgram = QStringLiteral("setProgram");
const QString c_setDirection = QStringLiteral("setDirection");
const QString c_getRegister = QStringLiteral("getRegister");
const QString c_success = QStringLiteral("cmd_success");
const QString c_channel = QStringLiteral("channel");
const QString c_motorRun = QStringLiteral("motorRun");
const QString c_direction = QStringLiteral("direction");

const QString c_logForm = QStringLiteral("^\n \"[^\"]+\" ;\t Thread = %1 ;\t This = %2 ;\t "
                                         "plugins/p_device_haitor/source/be_maintenance_plugin ;\t %3 ;\t "
                                         "BeMaintenanceDeviceHaitor::%4: channel is null at index %5$");

void addChannel(BeMaintenanceDeviceHaitor& backend, const QString& id)
{
    const auto channel = DHaitorChannel::create({{QStringLiteral("id"), id}});
    channel->setReadCommand(c_getRegister);
    backend.statusChannelsModel()->append(channel);
}

/// Qt's text for an object, as a debug stream prints it.
QString inDebugText(const QObject* object)
{
    QString text;
    QDebug(&text).nospace() << object;
    return QRegularExpression::escape(text);
}

/// Empty, or what is wrong with what was logged: one critical message of the fixed form is wanted.
QString complaint(const LogCapture& log, const QObject& backend, int line, const QString& function, int index)
{
    const QVector<LogMessage>& said = log.messages();
    if (said.size() != 1 || said.constFirst().type != QtCriticalMsg ||
        said.constFirst().category != QLatin1String("default")) {
        return QStringLiteral("not one critical message in the common category");
    }
    const QRegularExpression form(
        c_logForm.arg(inDebugText(QThread::currentThread()), inDebugText(&backend)).arg(line).arg(function).arg(index));
    return form.match(said.constFirst().text).hasMatch() ? QString() : said.constFirst().text;
}

} // namespace

/// What is behind the maintenance panel, with a host that notes what is asked of it.
class TestBeMaintenancePlugin : public QObject
{
    Q_OBJECT

private:
    QStringList m_heard;

private Q_SLOTS:
    void showsItsMethodsInTheirOrder()
    {
        const QMetaObject& metaObject = BeMaintenanceDeviceHaitor::staticMetaObject;
        QList<QByteArray> methods;
        for (int i = metaObject.methodOffset(); i < metaObject.methodCount(); ++i) {
            methods.append(metaObject.method(i).methodSignature());
        }
        QCOMPARE(methods,
                 QList<QByteArray>({"connectionPathChanged()", "versionChanged()", "channelsModelChanged()",
                                    "delayingClickedOnChannel(int)", "updateChannelsValue()", "clickedOnChannel(int)",
                                    "setLock(bool)", "setProgram(QString)", "setDirection(bool)", "resetBackend()"}));
    }

    void showsItsPropertiesInTheirOrder()
    {
        const QMetaObject& metaObject = BeMaintenanceDeviceHaitor::staticMetaObject;
        QList<QByteArray> properties;
        for (int i = metaObject.propertyOffset(); i < metaObject.propertyCount(); ++i) {
            const QMetaProperty property = metaObject.property(i);
            QVERIFY(!property.isWritable());
            properties.append(property.typeName() + QByteArray(" ") + property.name() + ' ' +
                              property.notifySignal().name());
        }
        QCOMPARE(properties,
                 QList<QByteArray>({"QString connectionPath connectionPathChanged", "QString version versionChanged",
                                    "OLM_DHaitorChannel* statusChannelsModel channelsModelChanged"}));
    }

    void isNamedAfterItsModule()
    {
        const BeMaintenanceDeviceHaitor backend;
        QCOMPARE(backend.backendName(), QStringLiteral("PlgLibDeviceHaitor"));
    }

    void modelIsAMemberThatQmlKnows()
    {
        BeMaintenanceDeviceHaitor backend;
        QCOMPARE(backend.property("statusChannelsModel").value<OLM_DHaitorChannel*>(), backend.statusChannelsModel());
        QVERIFY(backend.statusChannelsModel()->parent() == nullptr);
    }

    void pathAndVersionAreAnnouncedOnChange()
    {
        BeMaintenanceDeviceHaitor backend;
        const QSignalSpy path(&backend, &BeMaintenanceDeviceHaitor::connectionPathChanged);
        const QSignalSpy version(&backend, &BeMaintenanceDeviceHaitor::versionChanged);
        for (int i = 0; i < 2; ++i) {
            backend.setConnectionPath(QStringLiteral("radio"));
            backend.setVersion(QStringLiteral("1.2"));
        }
        QCOMPARE(backend.property("connectionPath").toString(), QStringLiteral("radio"));
        QCOMPARE(backend.property("version").toString(), QStringLiteral("1.2"));
        QCOMPARE(path.size(), 1);
        QCOMPARE(version.size(), 1);
    }

    void commandsHaveTheirIndexes()
    {
        QCOMPARE(BeMaintenanceDeviceHaitor::c_commandsChannelsIndex,
                 (QMap<QString, int>{{c_setLock, 100}, {c_setProgram, 200}, {c_setDirection, 300}}));
    }

    void beingFoundByTheHostAsksForNothing()
    {
        BeMaintenanceDeviceHaitor backend;
        addChannel(backend, c_motorRun);
        Q_EMIT backend.abstractBackendInitialized();
        QVERIFY(backend.queued.isEmpty());
    }

    void beingFoundByTheHostReachesTheBackend()
    {
        BeMaintenanceDeviceHaitor backend;
        QVERIFY(QObject::disconnect(&backend, &DAbstractPluginBackend::abstractBackendInitialized, &backend,
                                    &BeMaintenanceDeviceHaitor::initBackend));
    }

    void lockIsQueuedAsANumber()
    {
        BeMaintenanceDeviceHaitor backend;
        backend.setLock(true);
        backend.setLock(false);
        const QString lock = QStringLiteral("lock");
        QCOMPARE(backend.queued, Queued({{100, c_setLock, {{lock, 1}}}, {100, c_setLock, {{lock, 0}}}}));
        QCOMPARE(backend.queued.constFirst().params.value(lock).userType(), int(QMetaType::Int));
    }

    void directionIsQueuedAsANumber()
    {
        BeMaintenanceDeviceHaitor backend;
        backend.setDirection(true);
        backend.setDirection(false);
        QCOMPARE(backend.queued,
                 Queued({{300, c_setDirection, {{c_direction, 1}}}, {300, c_setDirection, {{c_direction, 0}}}}));
        QCOMPARE(backend.queued.constFirst().params.value(c_direction).userType(), int(QMetaType::Int));
    }

    void programIsQueuedWhenItIsANumber_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QList<int>>("queued");
        QTest::newRow("number") << QStringLiteral("12") << QList<int>{12};
        QTest::newRow("zero") << QStringLiteral("0") << QList<int>{0};
        QTest::newRow("word") << QStringLiteral("abc") << QList<int>{};
        QTest::newRow("negative") << QStringLiteral("-3") << QList<int>{};
        QTest::newRow("empty") << QString() << QList<int>{};
        QTest::newRow("fraction") << QStringLiteral("1.5") << QList<int>{};
        QTest::newRow("hexadecimal") << QStringLiteral("0x10") << QList<int>{};
        QTest::newRow("too large") << QStringLiteral("2147483648") << QList<int>{};
    }
    void programIsQueuedWhenItIsANumber()
    {
        QFETCH(QString, text);
        QFETCH(QList<int>, queued);
        BeMaintenanceDeviceHaitor backend;
        const LogCapture log;
        backend.setProgram(text);
        Queued wanted;
        for (const int program : queued) {
            wanted.append({200, c_setProgram, {{QStringLiteral("progId"), program}}});
        }
        QCOMPARE(backend.queued, wanted);
        QVERIFY(log.messages().isEmpty());
    }

    void updateReadsEachChannelByItsPosition()
    {
        BeMaintenanceDeviceHaitor backend;
        addChannel(backend, c_motorRun);
        addChannel(backend, c_direction);
        backend.updateChannelsValue();
        QCOMPARE(backend.queued, Queued({{0, c_getRegister, {{c_channel, c_motorRun}}},
                                         {1, c_getRegister, {{c_channel, c_direction}}}}));
    }

    void updateOfAnEmptyListQueuesNothing()
    {
        BeMaintenanceDeviceHaitor backend;
        backend.updateChannelsValue();
        QVERIFY(backend.queued.isEmpty());
    }

    void updateWhileTreatmentsArePendingIsDropped()
    {
        BeMaintenanceDeviceHaitor backend;
        addChannel(backend, c_motorRun);
        backend.isPending = true;
        backend.updateChannelsValue();
        backend.isPending = false;
        QCoreApplication::processEvents();
        QVERIFY(backend.queued.isEmpty());
    }

    void updateNamesAMissingChannelAndGoesOn()
    {
        BeMaintenanceDeviceHaitor backend;
        backend.statusChannelsModel()->append({});
        addChannel(backend, c_motorRun);
        const LogCapture log;
        backend.updateChannelsValue();
        QCOMPARE(complaint(log, backend, 68, QStringLiteral("updateChannelsValue"), 0), QString());
        QCOMPARE(backend.queued, Queued({{1, c_getRegister, {{c_channel, c_motorRun}}}}));
    }

    void clickAsksForTheOppositeValue_data()
    {
        QTest::addColumn<QVariantList>("value");
        QTest::addColumn<bool>("asked");
        QTest::newRow("no value") << QVariantList() << true;
        QTest::newRow("false") << QVariantList{false} << true;
        QTest::newRow("true") << QVariantList{true} << false;
    }
    void clickAsksForTheOppositeValue()
    {
        QFETCH(QVariantList, value);
        QFETCH(bool, asked);
        BeMaintenanceDeviceHaitor backend;
        addChannel(backend, c_direction);
        addChannel(backend, c_motorRun);
        backend.getChannelAt(1)->setValue(value);
        const QSignalSpy delayed(&backend, &BeMaintenanceDeviceHaitor::delayingClickedOnChannel);
        backend.clickedOnChannel(1);
        const QString valueKey = QStringLiteral("value");
        QCOMPARE(backend.queued, Queued({{1, QString(), {{c_channel, c_motorRun}, {valueKey, asked}}}}));
        QCOMPARE(backend.queued.constFirst().params.value(valueKey).userType(), int(QMetaType::Bool));
        QCOMPARE(delayed.size(), 0);
    }

    void clickOnAMissingChannelIsNamedAndStops()
    {
        BeMaintenanceDeviceHaitor backend;
        const LogCapture log;
        backend.clickedOnChannel(3);
        QCOMPARE(complaint(log, backend, 83, QStringLiteral("clickedOnChannel"), 3), QString());
        QVERIFY(backend.queued.isEmpty());
    }

    void refusedClickIsTriedAgainFromTheEventLoop()
    {
        BeMaintenanceDeviceHaitor backend;
        addChannel(backend, c_motorRun);
        backend.isAccepting = false;
        const QSignalSpy delayed(&backend, &BeMaintenanceDeviceHaitor::delayingClickedOnChannel);
        backend.clickedOnChannel(0);
        QCOMPARE(backend.queued.size(), 1); // it does not call itself
        QCOMPARE(delayed, QList<QVariantList>({{0}}));
        for (int tries = 2; tries < 5; ++tries) {
            QCoreApplication::sendPostedEvents(); // one turn
            QCOMPARE(backend.queued.size(), tries);
        }
        backend.isAccepting = true;
        QCoreApplication::sendPostedEvents();
        QCOMPARE(backend.queued.size(), 5);
        QCoreApplication::sendPostedEvents();
        QCOMPARE(backend.queued.size(), 5);
        QCOMPARE(delayed.size(), 4);
    }

    void repeatedClickAsksWithTheValueOfThen()
    {
        BeMaintenanceDeviceHaitor backend;
        addChannel(backend, c_motorRun);
        backend.isAccepting = false;
        backend.clickedOnChannel(0);
        backend.getChannelAt(0)->setValue(QVariantList{true});
        backend.isAccepting = true;
        QCoreApplication::sendPostedEvents();
        QCOMPARE(backend.queued.constLast().params.value(QStringLiteral("value")), QVariant(false));
    }

    void repeatedClickOnAChannelThatIsGoneStops()
    {
        BeMaintenanceDeviceHaitor backend;
        addChannel(backend, c_motorRun);
        backend.isAccepting = false;
        backend.clickedOnChannel(0);
        backend.resetBackend();
        const LogCapture log;
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents();
        QCOMPARE(complaint(log, backend, 83, QStringLiteral("clickedOnChannel"), 0), QString());
        QCOMPARE(backend.queued.size(), 1);
    }

    void otherRefusedRequestsAreLost()
    {
        BeMaintenanceDeviceHaitor backend;
        addChannel(backend, c_motorRun);
        backend.isAccepting = false;
        const LogCapture log;
        backend.setLock(true);
        backend.setProgram(QStringLiteral("1"));
        backend.setDirection(true);
        backend.updateChannelsValue();
        QCOMPARE(backend.queued.size(), 4);
        QCoreApplication::sendPostedEvents();
        QCOMPARE(backend.queued.size(), 4);
        QVERIFY(log.messages().isEmpty());
    }

    void commandReplySucceedsByItsSuccess()
    {
        BeMaintenanceDeviceHaitor backend;
        QVERIFY(backend.applyTreatmentReply(100, c_setLock, {{c_success, true}}));
        QVERIFY(!backend.applyTreatmentReply(100, c_setLock, {{c_success, false}}));
        QVERIFY(!backend.applyTreatmentReply(100, c_setLock, {}));
    }

    void commandReplyNeverTouchesAChannel()
    {
        BeMaintenanceDeviceHaitor backend;
        addChannel(backend, c_motorRun);
        QVERIFY(backend.applyTreatmentReply(0, QStringLiteral("GetRegister"), {{c_success, true}}));
        QVERIFY(!backend.getChannelAt(0)->value().isValid());
    }

    void readingGoesToTheChannelAtItsPosition()
    {
        BeMaintenanceDeviceHaitor backend;
        addChannel(backend, c_motorRun);
        addChannel(backend, c_direction);
        const QSignalSpy changed(backend.getChannelAt(1).data(), &DHaitorChannel::valueChanged);
        QVERIFY(backend.applyTreatmentReply(1, c_getRegister, {{c_success, QVariantList{0}}}));
        QCOMPARE(backend.getChannelAt(1)->value().toString(), QStringLiteral("Fastening"));
        QCOMPARE(changed.size(), 1);
        QVERIFY(!backend.getChannelAt(0)->value().isValid());
    }

    void readingWithoutAValueFails()
    {
        BeMaintenanceDeviceHaitor backend;
        addChannel(backend, c_direction);
        QVERIFY(!backend.applyTreatmentReply(0, c_getRegister, {}));
    }

    void readingForAMissingChannelIsNamedAndFails()
    {
        BeMaintenanceDeviceHaitor backend;
        addChannel(backend, c_direction);
        const LogCapture log;
        QVERIFY(!backend.applyTreatmentReply(1, c_getRegister, {{c_success, QVariantList{0}}}));
        QCOMPARE(complaint(log, backend, 179, QStringLiteral("applyTreatmentReply"), 1), QString());
    }

    void positionsOutsideTheListHaveNoChannel()
    {
        BeMaintenanceDeviceHaitor backend;
        addChannel(backend, c_direction);
        QVERIFY(backend.getChannelAt(-1).isNull());
        QVERIFY(backend.getChannelAt(1).isNull());
        QVERIFY(!backend.getChannelAt(0).isNull());
    }

    void resetLetsTheChannelsGo()
    {
        BeMaintenanceDeviceHaitor backend;
        addChannel(backend, c_direction);
        const QWeakPointer<DHaitorChannel> channel = backend.getChannelAt(0);
        const OLM_DHaitorChannel* model = backend.statusChannelsModel();
        m_heard.clear();
        connect(model, &QAbstractItemModel::modelAboutToBeReset, this, [this] { m_heard += QStringLiteral("begin"); });
        connect(model, &QAbstractItemModel::modelReset, this, [this] { m_heard += QStringLiteral("end"); });
        connect(model, &OLM_DHaitorChannel::changed, this, [this] { m_heard += QStringLiteral("changed"); });
        backend.resetBackend();
        QCOMPARE(m_heard, QStringList({QStringLiteral("begin"), QStringLiteral("end"), QStringLiteral("changed")}));
        QCOMPARE(model->rowCount(), 0);
        QVERIFY(channel.isNull());
    }
};

QTEST_GUILESS_MAIN(TestBeMaintenancePlugin)
#include "tst_be_maintenance_plugin.moc"
