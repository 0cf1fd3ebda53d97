#pragma once

#include <QStringList>
#include <QVariantMap>

#include <memory>

/// Which command runs, and on what.
struct TalkSetUp
{
    QString command;        ///< "listenEventsData", "startDetection", "searchAndConnect", "sendInitConfig",
                            ///< "listProgram", or "setProgram" with a "progId" that is not the current one
    QVariantMap parameters; ///< of the run
    QVariantMap properties; ///< of the plugin, before the run
};

/// What a run has done.
struct TalkOutcome
{
    QStringList events;     ///< as eventText() writes them, in order
    QVariantMap properties; ///< of the plugin, behind the run

    bool operator==(const TalkOutcome& other) const { return events == other.events && properties == other.properties; }
};

/// What the commands have to do, written down a second time: as slowly and as plainly as it can be said, without a
/// line of the plugin. Its only purpose is to be compared with.
class NaiveTalk
{
public:
    static std::unique_ptr<NaiveTalk> of(const TalkSetUp& setUp);
    virtual ~NaiveTalk() = default;

    void start();
    /// A reply of the driver; one that comes after the end is heard by nobody.
    void arrive(const QVariantMap& reply);

    const TalkOutcome& outcome() const { return m_outcome; }

protected:
    explicit NaiveTalk(const TalkSetUp& setUp);

    // What a command is.
    virtual void begin() = 0;
    virtual void onLine(const QString& line) = 0;
    virtual void afterReply() {}
    virtual bool readsBytes() const { return false; }
    virtual bool dropsRepeats() const { return true; }

    // What it can do.
    void listen(const QString& validator = {});
    void send(const QString& frame); ///< and remembers it
    void write(const QString& frame);
    void publish(const QVariantMap& values);
    void end();

    TalkOutcome m_outcome;
    QVariantMap m_parameters;
    QString m_sent;
    int m_number = -1; ///< of the last reply
    bool m_hasEnded = false;

private:
    Q_DISABLE_COPY(NaiveTalk)
    QString takeLine();

    QString m_text;
    QByteArray m_bytes;
};
