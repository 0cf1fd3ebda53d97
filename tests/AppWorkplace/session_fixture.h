#pragma once

#include <QCoreApplication>

#include <functional>
#include <memory>

#include <lib_plugins_management/host/d_host.h>

#include "manual_clock.h"
#include "scripted_plugin.h"
#include "services/session.h"

/// A session with a scripted device and driver in one process: no terminal, no wrench, and a clock turned by hand.
class SessionFixture
{
public:
    /// port: the file of the line; empty: it has none.
    explicit SessionFixture(const SessionOrder& order = defaultOrder(), const QString& port = {})
        : host(clock)
        , device(make(QStringLiteral("device"), deviceReactions()))
        , driver(make(QStringLiteral("driver"), driverReactions()))
        , session(std::make_unique<Session>(LinkedDevice{host, clock, *device, *driver, port}, order))
    {
        driver->setReaction(QStringLiteral("listenEventsData"), {Reaction::Kind::Silence, {}, [this] { openLine(); }});
        whenDialled([] {});
        whenUnlocked([] {});
        driver->setReaction(QStringLiteral("write"),
                            {Reaction::Kind::Answer, {{QStringLiteral("cmd_success"), true}}, [this] {
                                 if (talk.constLast().contains(QLatin1String("frame=ATH"))) {
                                     say("ATH\r\n");
                                 }
                             }});
        QObject::connect(session.get(), &Session::sigStepDone, session.get(),
                         [this](Session::Step step, qint64 elapsedMs) {
                             events.append(QStringLiteral("done %1 %2").arg(textOf(step).name).arg(elapsedMs));
                         });
        QObject::connect(session.get(), &Session::sigReady, session.get(),
                         [this] { events.append(QStringLiteral("ready")); });
        QObject::connect(session.get(), &Session::sigResult, session.get(), [this](const TighteningResult& result) {
            events.append(
                QStringLiteral("result %1").arg(result.eventData.value(QStringLiteral("readingNumber")).toString()));
            shown.append(result);
        });
        QObject::connect(session.get(), &Session::sigLink, session.get(), [this](const LinkReport& report) {
            links.append(report);
            events.append(lineOf(report));
        });
        QObject::connect(session.get(), &Session::sigFailed, session.get(), [this](const Problem& told) {
            problem = told;
            ++problems;
        });
        QObject::connect(session.get(), &Session::sigFinished, session.get(), [this](const SessionSummary& told) {
            summary = told;
            ++ends;
        });
    }

    static SessionOrder defaultOrder()
    {
        SessionOrder order;
        order.serialId = QStringLiteral("2210");
        order.program = 2;
        order.pauseSeed = 1;
        return order;
    }

    /// The session goes as far as it does without the clock.
    void start()
    {
        session->start();
        turn();
    }
    /// Everything that waits for a turn of the event loop is done.
    static void turn()
    {
        constexpr int c_turns = 60; // a session takes about twenty
        for (int i = 0; i < c_turns; ++i) {
            QCoreApplication::processEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }
    void advance(int ms)
    {
        clock.advance(ms);
        turn();
    }

    void openLine() { setLine(QString(), QStringLiteral("open"), true); }
    void silenceLine()
    {
        setLine(QStringLiteral("The device has left the keep-alive unanswered."), QStringLiteral("no answer"), false);
    }
    void loseLine() { setLine(QStringLiteral("The port went away: plug it in."), QStringLiteral("lost"), false); }
    /// In the order in which the driver tells.
    void setLine(const QString& error, const QString& state, bool isConnected)
    {
        driver->setProperty(QStringLiteral("lineError"), error, false);
        driver->setProperty(QStringLiteral("lineState"), state, false);
        driver->setProperty(QStringLiteral("connected"), isConnected, false);
    }
    /// number: of the chunk.
    void say(const QByteArray& bytes, int number = 0)
    {
        driver->publish(QStringLiteral("listenEventsData"),
                        {{QStringLiteral("frame"), bytes}, {QStringLiteral("number"), number}});
    }
    void tighten(int number, const QString& status = QStringLiteral("0"))
    {
        device->publish(QStringLiteral("listenEventsData"),
                        {{QStringLiteral("eventData"), QVariantMap{{QStringLiteral("readingNumber"), number},
                                                                   {QStringLiteral("torqueStatus"), status},
                                                                   {QStringLiteral("angleStatus"), QStringLiteral("0")},
                                                                   {QStringLiteral("readingStatus"), status}}}});
        turn();
    }
    void answer(const char* command, const QMap<QString, QVariant>& results)
    {
        device->setReaction(QLatin1String(command), {Reaction::Kind::Answer, results, {}});
    }
    /// The dongle has a link already, so often as it is searched; the last of the links is opened anew.
    void holdALink(int times)
    {
        device->setReaction(QStringLiteral("searchAndConnect"),
                            {Reaction::Kind::Answer, {{QStringLiteral("cmd_success"), true}}, [this, times] {
                                 say("ERR:2\r\nOK:0\r\n");
                                 if (times > 1) {
                                     holdALink(times - 1);
                                 } else {
                                     whenDialled([] {});
                                 }
                             }});
    }
    /// The wrench is heard and linked, and does that before the command ends.
    void whenDialled(const std::function<void()>& action)
    {
        device->setReaction(QStringLiteral("searchAndConnect"),
                            {Reaction::Kind::Answer, {{QStringLiteral("cmd_success"), true}}, [this, action] {
                                 say("RESP 02:00:00:00:00:01 TW60 2210 -61\r\nATD 020000000001\r\nDATA\r\n");
                                 action();
                             }});
    }
    /// The dongle says nothing to the hang-up.
    void hangUpInSilence()
    {
        driver->setReaction(QStringLiteral("write"),
                            {Reaction::Kind::Answer, {{QStringLiteral("cmd_success"), true}}, {}});
    }
    /// The wrench is unlocked, and does that before it says so.
    void whenUnlocked(const std::function<void()>& action)
    {
        device->setReaction(QStringLiteral("setLock"),
                            {Reaction::Kind::Answer, {{QStringLiteral("cmd_success"), true}}, [this, action] {
                                 action();
                                 say("OK:0\r\n");
                             }});
    }
    void react(const QString& command, Reaction::Kind kind) { device->setReaction(command, {kind, {}, {}}); }

    /// The last entries of the talk, however the session has ended once its line was open.
    static QStringList orderlyEnd()
    {
        return {QStringLiteral("driver setKeepAliveFonction frame= responseFrame="),
                QStringLiteral("driver write frame=ATH\r\n timeout=500"), QStringLiteral("driver closeConnection"),
                QStringLiteral("device stopped listenEventsData"), QStringLiteral("driver stopped listenEventsData")};
    }
    /// As many of the last entries.
    QStringList lastTalk(int count) const { return talk.mid(talk.size() - count); }
    /// How the talk ended: from the first entry with that text on.
    QStringList talkFrom(const QString& entry) const { return talk.mid(talk.indexOf(entry)); }

    ManualClock clock;
    DHost host;
    QStringList talk;
    ScriptedPlugin* device; // owned by the host
    ScriptedPlugin* driver; // owned by the host
    std::unique_ptr<Session> session;

    QStringList events;
    QList<LinkReport> links;
    QList<TighteningResult> shown;
    Problem problem;
    SessionSummary summary;
    int problems = 0;
    int ends = 0;

private:
    static QString lineOf(const LinkReport& report)
    {
        switch (report.kind) {
        case LinkReport::Kind::Opened:
            return QStringLiteral("link up %1").arg(report.state);
        case LinkReport::Kind::Lost:
            return QStringLiteral("link down %1 %2").arg(report.state, report.message);
        case LinkReport::Kind::Waiting:
            return QStringLiteral("link attempt %1 later: %2").arg(report.attempt).arg(report.message);
        case LinkReport::Kind::Restoring:
            return QStringLiteral("link attempt %1").arg(report.attempt);
        case LinkReport::Kind::Restored:
            return QStringLiteral("link restored %1").arg(report.gapMs);
        }
        return {};
    }
    static QMap<QString, Reaction> deviceReactions()
    {
        const QMap<QString, QVariant> success{{QStringLiteral("cmd_success"), true}};
        const auto program = [](int id) { return QVariantMap{{QStringLiteral("progId"), id}}; };
        const QVariantList programs{program(1), program(2), program(3)};
        const auto preset = QVariantMap{{QStringLiteral("unit"), QStringLiteral("N.m")}};
        QMap<QString, Reaction> reactions;
        for (const char* command : {"searchAndConnect", "sendInitConfig", "setLock", "setKeepAliveFonction"}) {
            reactions.insert(QLatin1String(command), {Reaction::Kind::Answer, success, {}});
        }
        reactions.insert(QStringLiteral("listProgram"),
                         {Reaction::Kind::Answer, {{QStringLiteral("programList"), programs}}, {}});
        reactions.insert(QStringLiteral("getPresetData"),
                         {Reaction::Kind::Answer, {{QStringLiteral("presetData"), preset}}, {}});
        reactions.insert(QStringLiteral("setProgram"),
                         {Reaction::Kind::Answer,
                          {{QStringLiteral("cmd_success"), true}, {QStringLiteral("presetData"), preset}},
                          {}});
        reactions.insert(QStringLiteral("listenEventsData"), {});
        return reactions;
    }
    static QMap<QString, Reaction> driverReactions()
    {
        const QMap<QString, QVariant> success{{QStringLiteral("cmd_success"), true}};
        return {{QStringLiteral("listenEventsData"), {}},
                {QStringLiteral("write"), {Reaction::Kind::Answer, success, {}}},
                {QStringLiteral("setKeepAliveFonction"), {Reaction::Kind::Answer, success, {}}},
                {QStringLiteral("closeConnection"), {Reaction::Kind::Answer, success, {}}}};
    }
    ScriptedPlugin* make(const QString& name, const QMap<QString, Reaction>& reactions)
    {
        const ScriptedPlugin root(name, reactions, &talk);
        return static_cast<ScriptedPlugin*>(host.createInstance(root, QUuid::createUuid()));
    }
};
