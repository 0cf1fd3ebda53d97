#pragma once

#include <QString>

/// For a data function: a row for each *.txt of the folder and each way of cutting what arrives, with the columns
/// "file" (QString) and "pieceSize" (int). A folder without transcripts is a mistake and ends the program.
void addTranscriptRows(const QString& folder);
