#pragma once

#include "fuzz_input.h"
#include "naive_talk.h"

/// A fuzzed run of a listening command: what came over the line, and what the command did.
struct FuzzTalk
{
    QByteArray line;
    QByteArray delivered; ///< the same with what was delivered twice
    TalkOutcome outcome;

    /// A chunk is converted to text by itself: a line that is not plain may come out otherwise when it is cut.
    bool isPlain() const;
    /// The texts of the frames that were written, in order.
    QStringList frames() const;
    /// What was published under a name, as typed text, in order.
    QStringList published(const QString& name) const;
};

/// Takes the manner of the chunks, how many replies are delivered twice, and the line from the input; runs the command
/// on it and checks what holds for every command:
///
/// - it does what the naive talk does, with these chunks and with all in one;
/// - the chunks make no difference but for the numbers of the replies;
/// - what it has done is bounded by what it was told.
FuzzTalk runFuzzTalk(const TalkSetUp& setUp, FuzzInput& input);
