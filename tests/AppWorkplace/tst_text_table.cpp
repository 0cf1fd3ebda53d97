#include <QStringList>
#include <QTest>

#include "cli/text_table.h"

class TestTextTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void putsTextsLeftAndNumbersRight();
    void growsWithItsWidestCell();
    void keepsTheWidthOfAGrowingTable();
    void leavesNoBlanksAtTheEnd();
    void showsMissingCellsAsEmpty();
    void showsControlCharacters();
    void isAsWideAsItsTitlesWithoutRows();
};

void TestTextTable::putsTextsLeftAndNumbersRight()
{
    TextTable table({{QStringLiteral("name")}, {QStringLiteral("value"), true}, {QStringLiteral("unit")}});
    table.addRow({QStringLiteral("a"), QStringLiteral("1"), QStringLiteral("s")});
    QCOMPARE(table.lines(), (QStringList{QStringLiteral("name  value  unit"), QStringLiteral("a         1  s")}));
}

void TestTextTable::growsWithItsWidestCell()
{
    TextTable table({{QStringLiteral("n"), true}, {QStringLiteral("t")}, {QStringLiteral("e")}});
    table.addRow({QStringLiteral("1"), QStringLiteral("wide cell"), QStringLiteral("x")});
    table.addRow({QStringLiteral("1000"), QStringLiteral("t"), QStringLiteral("x")});
    QCOMPARE(table.lines(), (QStringList{QStringLiteral("   n  t          e"), QStringLiteral("   1  wide cell  x"),
                                         QStringLiteral("1000  t          x")}));
}

void TestTextTable::keepsTheWidthOfAGrowingTable()
{
    const TextTable table({{QStringLiteral("n"), true, 4}, {QStringLiteral("t")}});
    QCOMPARE(table.titleLine(), QStringLiteral("   n  t"));
    QCOMPARE(table.rowLine({QStringLiteral("12345"), QStringLiteral("x")}), QStringLiteral("12345  x"));
}

void TestTextTable::leavesNoBlanksAtTheEnd()
{
    TextTable table({{QStringLiteral("a")}, {QStringLiteral("long title")}});
    table.addRow({QStringLiteral("1"), QString()});
    QCOMPARE(table.lines().constLast(), QStringLiteral("1"));
}

void TestTextTable::showsMissingCellsAsEmpty()
{
    TextTable table({{QStringLiteral("a")}, {QStringLiteral("b")}});
    table.addRow({QStringLiteral("1")});
    QCOMPARE(table.lines().constLast(), QStringLiteral("1"));
}

void TestTextTable::showsControlCharacters()
{
    TextTable table({{QStringLiteral("a"), true}, {QStringLiteral("b")}});
    table.addRow({QStringLiteral("\x1b"), QStringLiteral("x")});
    QCOMPARE(table.lines(), (QStringList{QStringLiteral("   a  b"), QStringLiteral("\\x1b  x")}));
}

void TestTextTable::isAsWideAsItsTitlesWithoutRows()
{
    const TextTable table({{QStringLiteral("a")}, {QStringLiteral("b")}});
    QCOMPARE(table.lines(), QStringList{QStringLiteral("a  b")});
}

QTEST_GUILESS_MAIN(TestTextTable)
#include "tst_text_table.moc"
