#include <QTest>

#include <lib_utilities/d_object.h>

class TstDObject : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hasTheNameItWasMadeWith();
    void belongsToItsParent();
};

void TstDObject::hasTheNameItWasMadeWith()
{
    const DObject object(QStringLiteral("Channel"));
    QCOMPARE(object.objectName(), QStringLiteral("Channel"));
    QVERIFY(object.parent() == nullptr);
}

void TstDObject::belongsToItsParent()
{
    QObject parent;
    const auto* object = new DObject(QStringLiteral("Channel"), &parent);
    QCOMPARE(object->parent(), &parent);
}

QTEST_GUILESS_MAIN(TstDObject)
#include "tst_d_object.moc"
