#include <QDir>
#include <QTest>

#include "corpus_targets.h"

namespace {

/// The input that a line of a corpus stands for; see corpus_file.py.
QByteArray unescaped(const QByteArray& line)
{
    constexpr int c_digits = 2;
    QByteArray bytes;
    for (int at = 0; at < line.size(); ++at) {
        if (line.at(at) != '\\') {
            bytes += line.at(at);
            continue;
        }
        const char letter = line.at(++at);
        const int known = QByteArray("nrt\\").indexOf(letter);
        if (known >= 0) {
            bytes += "\n\r\t\\"[known];
        } else {
            bytes += QByteArray::fromHex(line.mid(at + 1, c_digits));
            at += c_digits;
        }
    }
    return bytes;
}

} // namespace

/// The fuzz targets on their committed corpora, as tests: each input takes its target another way. An invariant that
/// does not hold aborts the program, and Qt Test tells the target and the line of its corpus.
class TestCorpus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anInputIsReadAsItWas() { QCOMPARE(unescaped("a\\x00\\\\x\\r\\n\\xff"), QByteArray("a\0\\x\r\n\xff", 7)); }

    void theInvariantsHold_data()
    {
        QTest::addColumn<CorpusTarget::Run>("run");
        QTest::addColumn<QByteArray>("input");
        for (const CorpusTarget& target : corpusTargets()) {
            QTest::addRow("%s, nothing", target.name) << target.run << QByteArray();
            QFile corpus(QStringLiteral(CORPUS "/%1.txt").arg(QLatin1String(target.name)));
            if (!corpus.open(QIODevice::ReadOnly) || corpus.size() == 0) {
                qFatal("no corpus in %s", qPrintable(corpus.fileName()));
            }
            const QByteArrayList lines = corpus.readAll().chopped(1).split('\n');
            for (int i = 0; i < lines.size(); ++i) {
                QTest::addRow("%s, line %d", target.name, i + 1) << target.run << unescaped(lines.at(i));
            }
        }
    }

    void theInvariantsHold()
    {
        QFETCH(const CorpusTarget::Run, run);
        QFETCH(const QByteArray, input);
        run(input);
    }
};

QTEST_GUILESS_MAIN(TestCorpus)

#include "tst_corpus.moc"
