#pragma once

#include <QByteArray>

#include <optional>

struct Babble;

/// What comes over the line though nobody asked, piece by piece, spread evenly over a time.
class Babbler
{
public:
    /// What a piece is: a whole line with its end, or bytes without any line end.
    enum class Kind { Lines, Endless };

    explicit Babbler(Kind kind) : m_kind(kind) {}

    /// Begins anew; what was left of an earlier one is forgotten.
    void start(const Babble& babble, qint64 nowUs);
    void stop() { m_pieces = m_next = 0; }

    /// When the next piece is due; nothing: there is none.
    std::optional<qint64> nextDueUs() const;

    /// The next piece. Only while there is one.
    QByteArray take();

private:
    Kind m_kind;
    int m_count = 0; ///< lines or bytes
    int m_pieces = 0;
    int m_next = 0;
    qint64 m_startUs = 0;
    qint64 m_durationUs = 0;
};
