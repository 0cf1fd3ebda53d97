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

/// The inputs in a file of that folder; none when there is no such file.
QByteArrayList inputsIn(const QString& folder, const char* target)
{
    QFile file(QStringLiteral(FUZZ_INPUTS "/%1/%2.txt").arg(folder, QLatin1String(target)));
    return file.open(QIODevice::ReadOnly) && file.size() > 0 ? file.readAll().chopped(1).split('\n') : QByteArrayList();
}

} // namespace

/// The fuzz targets as tests: on their committed corpora, of which each input takes its target another way, and on the
/// inputs with which something was found. An invariant that does not hold aborts the program, and Qt Test tells the
/// target and the line.
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
            if (inputsIn(QStringLiteral("corpus"), target.name).isEmpty()) {
                qFatal("%s has no corpus", target.name);
            }
            for (const QString& folder : {QStringLiteral("corpus"), QStringLiteral("findings")}) {
                const QByteArrayList lines = inputsIn(folder, target.name);
                for (int i = 0; i < lines.size(); ++i) {
                    QTest::addRow("%s, %s, line %d", target.name, qPrintable(folder), i + 1)
                        << target.run << unescaped(lines.at(i));
                }
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
