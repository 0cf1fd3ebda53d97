#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

/// The wrench simulator's dongle without its terminal, under a time that is passed in. It stands behind this face, in a
/// library of its own, because simulator and workplace both have classes of the same names.
///
/// Times are microseconds of any clock that never goes back. One thread.
class Q_DECL_EXPORT SimulatedDongle
{
public:
    /// Whoever holds the other end of the cable.
    class Line
    {
    public:
        virtual void chunkArrived(const QByteArray& chunk) = 0;
        /// The adapter has been pulled, or is back.
        virtual void pulled() = 0;
        virtual void pluggedIn() = 0;

    protected:
        ~Line() = default;
    };

    /// options: as on the command line of wrench_simulator; what is wrong with them ends the program. The line outlives
    /// the dongle.
    SimulatedDongle(const QStringList& options, Line& line);
    ~SimulatedDongle();

    void receive(const QByteArray& bytes, qint64 nowUs);
    void advance(qint64 nowUs);
    /// When advance() has something to do again, if ever without new input.
    std::optional<qint64> nextDueUs() const;

    bool isPlugged() const;
    /// A command of the simulator's console, and its answer.
    QString command(const QString& text, qint64 nowUs);

private:
    Q_DISABLE_COPY(SimulatedDongle)
    class Private;
    const std::unique_ptr<Private> d;
};
