#include <QAbstractItemModelTester>
#include <QMetaEnum>
#include <QMetaProperty>
#include <QPointer>
#include <QQmlEngine>
#include <QSignalSpy>
#include <QStringListModel>
#include <QTest>

#include "olm_d_haitor_channel.h"

namespace {

const QString c_id = QStringLiteral("id");
const QString c_value = QStringLiteral("value");
const QString c_type = QStringLiteral("type");
const QString c_direction = QStringLiteral("direction");
const QString c_motorRun = QStringLiteral("motorRun");

QSharedPointer<DHaitorChannel> channelWithId(const QString& id)
{
    return DHaitorChannel::create({{c_id, id}});
}

QSharedPointer<DHaitorChannel> channelWithType(const QString& id, const QVariant& type)
{
    return DHaitorChannel::create({{c_id, id}, {c_value, QVariantList{QVariantMap{{c_id, c_type}, {c_value, type}}}}});
}

/// The names of the signals and invokable methods that the class itself declares, in their order.
QStringList ownMethods(const QMetaObject& metaObject)
{
    QStringList methods;
    for (int i = metaObject.methodOffset(); i < metaObject.methodCount(); ++i) {
        methods.append(QString::fromUtf8(metaObject.method(i).methodSignature()));
    }
    return methods;
}

/// "type name notifier" of each property that the class itself declares, in their order.
QStringList ownProperties(const QMetaObject& metaObject)
{
    QStringList properties;
    for (int i = metaObject.propertyOffset(); i < metaObject.propertyCount(); ++i) {
        const QMetaProperty property = metaObject.property(i);
        properties.append(QStringLiteral("%1 %2 %3")
                              .arg(QString::fromUtf8(property.typeName()), QString::fromUtf8(property.name()),
                                   QString::fromUtf8(property.notifySignal().name())));
        if (property.isWritable()) {
            properties.last() += QStringLiteral(" writable");
        }
    }
    return properties;
}

} // namespace

/// Channels and the list model that holds them.
class TestChannels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newChannelIsEmpty()
    {
        const DHaitorChannel channel;
        QCOMPARE(channel.objectName(), QStringLiteral("DHaitorChannel"));
        QVERIFY(channel.id().isEmpty() && channel.name().isEmpty() && channel.label().isEmpty());
        QVERIFY(channel.readCommand().isEmpty());
        QVERIFY(!channel.value().isValid());
        QCOMPARE(channel.type(), DHaitorChannel::CeCtUnknown);
        QVERIFY(channel.attributes().isEmpty());
    }

    void channelShowsItsPropertiesInTheirOrder()
    {
        QCOMPARE(
            ownProperties(DHaitorChannel::staticMetaObject),
            QStringList({QStringLiteral("QString channelId idChanged"), QStringLiteral("QString name nameChanged"),
                         QStringLiteral("QString label labelChanged"), QStringLiteral("QVariant value valueChanged"),
                         QStringLiteral("EnChannelType type typeChanged")}));
    }

    void channelShowsItsSignalsInTheirOrder()
    {
        QCOMPARE(ownMethods(DHaitorChannel::staticMetaObject),
                 QStringList({QStringLiteral("idChanged()"), QStringLiteral("nameChanged()"),
                              QStringLiteral("labelChanged()"), QStringLiteral("valueChanged()"),
                              QStringLiteral("typeChanged()"), QStringLiteral("sigSwitchChannelValue(QString)")}));
    }

    void kindsOfChannelsHaveTheirNumbers()
    {
        const auto kinds = QMetaEnum::fromType<DHaitorChannel::EnChannelType>();
        QCOMPARE(kinds.keyCount(), 4);
        QCOMPARE(kinds.keyToValue("CeCtUnknown"), 0);
        QCOMPARE(kinds.keyToValue("CeCtString"), 1);
        QCOMPARE(kinds.keyToValue("CeCtBool"), 2);
        QCOMPARE(kinds.keyToValue("_CeCtNbr"), 3);
        QCOMPARE(sizeof(DHaitorChannel::EnChannelType), sizeof(qint32));
    }

    void tablesOfTypesAndDirections()
    {
        const QMap<QString, DHaitorChannel::EnChannelType> types{
            {c_direction, DHaitorChannel::CeCtString},
            {c_motorRun, DHaitorChannel::CeCtBool},
            {QStringLiteral("currentPreset"), DHaitorChannel::CeCtString}};
        QCOMPARE(DHaitorChannel::c_channelTypesMap, types);
        QCOMPARE(DHaitorChannel::c_directionCodeToString,
                 QStringList({QStringLiteral("Fastening"), QStringLiteral("Loosening"), QString(), QString()}));
    }

    void settersAnnounceChangesOnly_data()
    {
        QTest::addColumn<QByteArray>("property");
        QTest::addColumn<QVariant>("value");
        QTest::newRow("id") << QByteArray("channelId") << QVariant(c_direction);
        QTest::newRow("name") << QByteArray("name") << QVariant(QStringLiteral("Direction"));
        QTest::newRow("label") << QByteArray("label") << QVariant(QStringLiteral("way round"));
        QTest::newRow("type") << QByteArray("type") << QVariant::fromValue(DHaitorChannel::CeCtBool);
    }
    void settersAnnounceChangesOnly()
    {
        QFETCH(QByteArray, property);
        QFETCH(QVariant, value);
        DHaitorChannel channel;
        const auto set = [&] {
            if (property == "channelId") {
                channel.setId(value.toString());
            } else if (property == "name") {
                channel.setName(value.toString());
            } else if (property == "label") {
                channel.setLabel(value.toString());
            } else {
                channel.setType(value.value<DHaitorChannel::EnChannelType>());
            }
        };
        const QMetaObject& metaObject = DHaitorChannel::staticMetaObject;
        const QMetaProperty shown = metaObject.property(metaObject.indexOfProperty(property));
        const QSignalSpy spy(&channel, shown.notifySignal());
        set();
        QCOMPARE(spy.size(), 1);
        QCOMPARE(shown.read(&channel), value);
        set();
        QCOMPARE(spy.size(), 1);
    }

    void shownValue_data()
    {
        QTest::addColumn<QString>("id");
        QTest::addColumn<QVariant>("received");
        QTest::addColumn<QVariant>("shown");
        const QVariant fastening(QStringLiteral("Fastening"));
        QTest::newRow("direction 0") << c_direction << QVariant(QVariantList{0}) << fastening;
        QTest::newRow("direction 1") << c_direction << QVariant(QVariantList{1})
                                     << QVariant(QStringLiteral("Loosening"));
        QTest::newRow("direction 3") << c_direction << QVariant(QVariantList{3}) << QVariant(QString());
        QTest::newRow("direction 4") << c_direction << QVariant(QVariantList{4}) << QVariant(QString());
        QTest::newRow("direction -1") << c_direction << QVariant(QVariantList{-1}) << QVariant(QString());
        QTest::newRow("one element") << c_motorRun << QVariant(QVariantList{1}) << QVariant(1);
        QTest::newRow("id in capitals") << QStringLiteral("Direction") << QVariant(QVariantList{1}) << QVariant(1);
        QTest::newRow("true") << c_motorRun << QVariant(true) << fastening;
        QTest::newRow("false") << c_direction << QVariant(false) << fastening;
        QTest::newRow("number") << c_direction << QVariant(1) << fastening;
        QTest::newRow("text") << c_motorRun << QVariant(QStringLiteral("on")) << fastening;
    }
    void shownValue()
    {
        QFETCH(QString, id);
        QFETCH(QVariant, received);
        QFETCH(QVariant, shown);
        const auto channel = channelWithId(id);
        const QSignalSpy spy(channel.data(), &DHaitorChannel::valueChanged);
        QVERIFY(channel->setValue(received));
        QCOMPARE(channel->value(), shown);
        QCOMPARE(spy.size(), 1);
        QVERIFY(channel->setValue(received));
        QCOMPARE(spy.size(), 1);
    }

    void listOfAnotherLengthShowsNothing_data()
    {
        QTest::addColumn<QVariantList>("received");
        QTest::newRow("none") << QVariantList();
        QTest::newRow("two") << QVariantList{0, 1};
    }
    void listOfAnotherLengthShowsNothing()
    {
        QFETCH(QVariantList, received);
        const auto channel = channelWithId(c_direction);
        channel->setValue(QVariantList{1});
        const QSignalSpy spy(channel.data(), &DHaitorChannel::valueChanged);
        QVERIFY(channel->setValue(received));
        QVERIFY(!channel->value().isValid());
        QCOMPARE(spy.size(), 1);
    }

    void valueThatIsNeitherListNorTruthIsRefused_data()
    {
        QTest::addColumn<QVariant>("received");
        QTest::newRow("nothing") << QVariant();
        QTest::newRow("map") << QVariant(QVariantMap{{c_id, 1}});
        QTest::newRow("date") << QVariant(QDate(2024, 2, 29));
    }
    void valueThatIsNeitherListNorTruthIsRefused()
    {
        QFETCH(QVariant, received);
        const auto channel = channelWithId(c_motorRun);
        channel->setValue(QVariantList{7});
        const QSignalSpy spy(channel.data(), &DHaitorChannel::valueChanged);
        QVERIFY(!channel->setValue(received));
        QCOMPARE(channel->value(), QVariant(7));
        QCOMPARE(spy.size(), 0);
    }

    void createTakesIdAndName()
    {
        const auto channel = DHaitorChannel::create({{c_id, c_motorRun},
                                                     {QStringLiteral("name"), QStringLiteral("Motor")},
                                                     {QStringLiteral("label"), QStringLiteral("ignored")},
                                                     {QStringLiteral("readCommand"), QStringLiteral("ignored")}});
        QCOMPARE(channel->id(), c_motorRun);
        QCOMPARE(channel->name(), QStringLiteral("Motor"));
        QVERIFY(channel->label().isEmpty());
        QVERIFY(channel->readCommand().isEmpty());
        QVERIFY(!channel->value().isValid());
        QVERIFY(channel->parent() == nullptr);
    }

    void createOfNothingIsAnEmptyChannel()
    {
        const auto channel = DHaitorChannel::create({});
        QVERIFY(channel->id().isEmpty() && channel->name().isEmpty() && channel->attributes().isEmpty());
    }

    void typeIsThatOfTheIdWhateverTheAttributeSays()
    {
        QCOMPARE(channelWithType(c_motorRun, QStringLiteral("string"))->type(), DHaitorChannel::CeCtBool);
        QCOMPARE(channelWithType(c_direction, 2)->type(), DHaitorChannel::CeCtString);
        QCOMPARE(channelWithType(QStringLiteral("torque"), 2)->type(), DHaitorChannel::CeCtUnknown);
    }

    void typeStaysUnknownWithoutItsAttribute()
    {
        QCOMPARE(channelWithId(c_motorRun)->type(), DHaitorChannel::CeCtUnknown);
        const auto channel = DHaitorChannel::create(
            {{c_id, c_motorRun},
             {c_value, QVariantList{QVariantMap{{c_id, QStringLiteral("Type")}, {c_value, QStringLiteral("bool")}}}}});
        QCOMPARE(channel->type(), DHaitorChannel::CeCtUnknown);
    }

    void attributesAreTheMapsOfTheList()
    {
        const auto channel = DHaitorChannel::create(
            {{c_value, QVariantList{QVariantMap{{c_id, QStringLiteral("unit")}, {c_value, QStringLiteral("Nm")}},
                                    QStringLiteral("no map"), 5,
                                    QVariantMap{{c_id, QStringLiteral("unit")}, {c_value, QStringLiteral("cNm")}},
                                    QVariantMap{{c_id, c_type}, {c_value, 9}}}}});
        QCOMPARE(channel->attributes(), QVariantMap({{QStringLiteral("unit"), QStringLiteral("cNm")}, {c_type, 9}}));
    }

    void attributesThatAreNoListAreNone()
    {
        const auto channel = DHaitorChannel::create(
            {{c_value, QVariantMap{{c_id, QStringLiteral("unit")}, {c_value, QStringLiteral("Nm")}}}});
        QVERIFY(channel->attributes().isEmpty());
    }

    void modelShowsItsMethodsAndProperties()
    {
        const QMetaObject& model = OLM_DHaitorChannel::staticMetaObject;
        QCOMPARE(ownMethods(model), QStringList({QStringLiteral("changed()"), QStringLiteral("header(int)"),
                                                 QStringLiteral("item(int)")}));
        QCOMPARE(ownProperties(model),
                 QStringList({QStringLiteral("int length changed"), QStringLiteral("bool isEmpty changed")}));
        QCOMPARE(model.superClass()->className(), "QAbstractListModel");
    }

    void emptyModel()
    {
        const OLM_DHaitorChannel model;
        QCOMPARE(model.property("length").toInt(), 0);
        QVERIFY(model.property("isEmpty").toBool());
        QVERIFY(!model.header(0).isValid());
        QVERIFY(!model.item(0).isValid());
        QVERIFY(!model.data(model.index(0, 0), Qt::UserRole).isValid());
    }

    void modelGivesItsChannelsByPosition()
    {
        OLM_DHaitorChannel model;
        const auto channel = channelWithId(c_motorRun);
        model.append(channel);
        QCOMPARE(model.property("length").toInt(), 1);
        QVERIFY(!model.property("isEmpty").toBool());
        QCOMPARE(model.item(0).value<DHaitorChannel*>(), channel.data());
        QCOMPARE(QByteArray(model.item(0).typeName()), QByteArray("DHaitorChannel*"));
        QVERIFY(!model.item(-1).isValid());
        QVERIFY(!model.item(1).isValid());
    }

    void modelGivesItsChannelsUnderTheUserRole()
    {
        OLM_DHaitorChannel model;
        const auto channel = channelWithId(c_motorRun);
        model.append(channel);
        QCOMPARE(model.data(model.index(0, 0), Qt::UserRole).value<QObject*>(), channel.data());
        QVERIFY(!model.data(model.index(0, 0), Qt::DisplayRole).isValid());
        QVERIFY(!model.data(model.index(0, 0), Qt::UserRole + 1).isValid());
    }

    void rolesAreTheBaseOnesAndModelData()
    {
        const OLM_DHaitorChannel model;
        QHash<int, QByteArray> wanted = QStringListModel().roleNames();
        wanted.insert(256, "modelData");
        QCOMPARE(model.roleNames(), wanted);
    }

    void headerIsInvalidWithoutExtraRoles()
    {
        OLM_DHaitorChannel model;
        model.append(channelWithId(c_motorRun));
        for (const int section : {-1, 0, 1}) {
            QVERIFY(!model.header(section).isValid());
        }
    }

    void extraRolesAreTheObjectsProperties()
    {
        __qobjectsqmllist::QObjectListModelBase<DHaitorChannel> model(nullptr, {"channelId", "label"});
        QVERIFY(!model.headerData(0, Qt::Horizontal, Qt::DisplayRole).isValid());
        model.append(channelWithId(c_motorRun));
        QCOMPARE(model.data(model.index(0, 0), Qt::UserRole + 1).toString(), c_motorRun);
        QCOMPARE(model.roleNames().value(Qt::UserRole + 1), QByteArray("channelId"));
        QCOMPARE(model.roleNames().value(Qt::UserRole + 2), QByteArray("label"));
        QCOMPARE(model.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("channelId"));
        QCOMPARE(model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("label"));
        QVERIFY(!model.headerData(-1, Qt::Horizontal, Qt::DisplayRole).isValid());
        QVERIFY(!model.headerData(1, Qt::Vertical, Qt::DisplayRole).isValid());
        QVERIFY(!model.headerData(2, Qt::Horizontal, Qt::DisplayRole).isValid());
    }

    void qmlNeverDeletesAChannel()
    {
        OLM_DHaitorChannel model;
        const auto channel = channelWithId(c_motorRun);
        model.append(channel);
        const QPointer<DHaitorChannel> alive(channel.data());
        {
            QQmlEngine engine;
            const QJSValue inQml = engine.newQObject(&model);
            QQmlEngine::setObjectOwnership(&model, QQmlEngine::CppOwnership);
            QJSValue read = engine.evaluate(QStringLiteral("(function(model) { return model.item(0).channelId })"));
            QCOMPARE(read.call({inQml}).toString(), c_motorRun);
            QCOMPARE(QQmlEngine::objectOwnership(channel.data()), QQmlEngine::CppOwnership);
            engine.collectGarbage();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!alive.isNull());
    }

    void tellsOfRowsThatComeAndGo()
    {
        OLM_DHaitorChannel model;
        const QSignalSpy came(&model, &QAbstractItemModel::rowsInserted);
        const QSignalSpy gone(&model, &QAbstractItemModel::rowsRemoved);
        model.append(channelWithId(c_direction));
        model.append(channelWithId(c_motorRun));
        QCOMPARE(came.count(), 2);
        QCOMPARE(came.last().at(1).toInt(), 1);
        QVERIFY(model.removeAt(1));
        QCOMPARE(gone.count(), 1);
        QCOMPARE(gone.last().at(1).toInt(), 1);
    }

    void modelKeepsTheRulesOfItemModels()
    {
        OLM_DHaitorChannel model;
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.append(channelWithId(c_direction));
        model.append(channelWithId(c_motorRun));
        QVERIFY(model.removeAt(0));
        QVERIFY(!model.removeAt(1));
        QCOMPARE(model.at(0)->id(), c_motorRun);
        model.beginResetModel();
        model.objects().clear();
        model.endResetModel();
        QCOMPARE(model.rowCount(), 0);
    }
};

QTEST_GUILESS_MAIN(TestChannels)
#include "tst_channels.moc"
