#pragma once

#include <QByteArray>
#include <QMetaType>

#include <vector>

/// A fuzz target of the program.
struct CorpusTarget
{
    using Run = void (*)(const QByteArray& bytes);

    const char* name; ///< and that of its corpus
    Run run;
};

Q_DECLARE_METATYPE(CorpusTarget::Run)

/// All that this program is built of; the build writes it down.
std::vector<CorpusTarget> corpusTargets();
