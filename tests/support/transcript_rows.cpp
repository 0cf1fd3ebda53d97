#include "transcript_rows.h"

#include <QDir>
#include <QTest>

#include "transcript_player.h"

void addTranscriptRows(const QString& folder)
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("pieceSize");
    const QFileInfoList files = QDir(folder).entryInfoList({QStringLiteral("*.txt")}, QDir::Files, QDir::Name);
    if (files.isEmpty()) {
        qFatal("no transcripts in %s", qPrintable(folder));
    }
    const struct
    {
        const char* name;
        int pieceSize;
    } ways[] = {{"whole", TranscriptPlayer::c_whole}, {"in sevens", 7}, {"byte by byte", 1}};
    for (const QFileInfo& file : files) {
        for (const auto& way : ways) {
            QTest::addRow("%s, %s", qPrintable(file.completeBaseName()), way.name)
                << file.absoluteFilePath() << way.pieceSize;
        }
    }
}
