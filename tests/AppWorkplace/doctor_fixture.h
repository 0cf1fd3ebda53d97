#pragma once

#include <QCoreApplication>

#include <memory>

#include <lib_plugins_management/host/d_host.h>

#include "doctor/doctor.h"
#include "doctor/doctor_stages.h"
#include "manual_clock.h"
#include "scripted_plugin.h"

/// An examination with a scripted device and driver in one process: no terminal, no wrench, and a clock turned by hand.
/// The line answers each frame with what the test says.
class DoctorFixture
{
public:
    explicit DoctorFixture(const DoctorOrder& order = defaultOrder())
        : host(clock)
        , device(make(QStringLiteral("device"), {{QStringLiteral("listProgram"), {}},
                                                 {QStringLiteral("sendInitConfig"), {}},
                                                 {QStringLiteral("listenEventsData"), {}}}))
        , driver(make(QStringLiteral("driver"), {{QStringLiteral("listenEventsData"), {}},
                                                 {QStringLiteral("write"), {}},
                                                 {QStringLiteral("closeConnection"), {}}}))
        , bench(host, clock, order)
    {
        bench.device = device;
        bench.driver = driver;
        const QMap<QString, QVariant> success{{QStringLiteral("cmd_success"), true}};
        driver->setReaction(QStringLiteral("listenEventsData"),
                            {Reaction::Kind::Silence, {}, [this] { setLine(QString(), true); }});
        driver->setReaction(QStringLiteral("write"), {Reaction::Kind::Answer, success, [this] { answerFrame(); }});
        driver->setReaction(QStringLiteral("closeConnection"), {Reaction::Kind::Answer, success, {}});
        device->setReaction(QStringLiteral("sendInitConfig"), {Reaction::Kind::Answer, success, {}});
        device->setReaction(
            QStringLiteral("listProgram"),
            {Reaction::Kind::Answer,
             {{QStringLiteral("cmd_success"), true}, {QStringLiteral("programList"), QVariantList{QVariantMap()}}},
             {}});
    }

    static DoctorOrder defaultOrder()
    {
        DoctorOrder order;
        order.port = QStringLiteral("/dev/port");
        order.serialId = QStringLiteral("2210");
        order.waitResultMs = 60000;
        return order;
    }

    /// Examines with these stages; all of them behind the plugins when none are given.
    void start(Doctor::Stages stages = {})
    {
        doctor =
            std::make_unique<Doctor>(bench, stages.empty() ? doctor_stages::fromThePort(bench) : std::move(stages));
        QObject::connect(doctor.get(), &Doctor::sigStageStarted, doctor.get(),
                         [this](const DoctorStageText& stage) { tell(QStringLiteral("started ") + stage.name); });
        QObject::connect(doctor.get(), &Doctor::sigNotice, doctor.get(),
                         [this](const QString& stage, const QString&) { tell(QStringLiteral("notice ") + stage); });
        QObject::connect(doctor.get(), &Doctor::sigStageEnded, doctor.get(),
                         [this](const DoctorStageText& stage, const DoctorFinding& finding) {
                             static const char* const words[] = {"passed", "failed", "skipped"};
                             tell(QStringLiteral("%1 %2").arg(QLatin1String(words[int(finding.outcome)]), stage.name));
                             problem = finding.outcome == DoctorFinding::Outcome::Failed ? finding.problem : problem;
                         });
        QObject::connect(doctor.get(), &Doctor::sigFailed, doctor.get(),
                         [this](const Problem& told) { unrestored = told; });
        QObject::connect(doctor.get(), &Doctor::sigFinished, doctor.get(), [this](const DoctorSummary& told) {
            summary = told;
            ++ends;
        });
        doctor->start();
        turn();
    }

    /// Everything that waits for a turn of the event loop is done.
    static void turn()
    {
        constexpr int c_turns = 60;
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
    /// Lets time pass until the examination has come there, or for some minutes.
    bool runTo(const QString& event)
    {
        constexpr int c_stepMs = 100;
        constexpr int c_steps = 3000;
        for (int i = 0; i < c_steps && !events.contains(event) && ends == 0; ++i) {
            advance(c_stepMs);
        }
        return events.contains(event);
    }
    void runToTheEnd() { runTo(QString()); }

    void setLine(const QString& error, bool isConnected)
    {
        driver->setProperty(QStringLiteral("lineError"), error, false);
        driver->setProperty(QStringLiteral("connected"), isConnected, false);
    }
    void tighten()
    {
        device->publish(
            QStringLiteral("listenEventsData"),
            {{QStringLiteral("eventData"), QVariantMap{{QStringLiteral("convertedTorque"), QStringLiteral("12.05")}}}});
        turn();
    }
    /// The frames with that beginning, in their order.
    QStringList frames(const QString& beginning = {}) const
    {
        QStringList found;
        for (const QString& line : talk) {
            const QString frame = line.section(QStringLiteral("frame="), 1).section(QStringLiteral("\r\n"), 0, 0);
            if (line.startsWith(QLatin1String("driver write ")) && frame.startsWith(beginning)) {
                found.append(frame);
            }
        }
        return found;
    }

    ManualClock clock;
    DHost host;
    QStringList talk;
    ScriptedPlugin* device; // owned by the host
    ScriptedPlugin* driver; // owned by the host
    DoctorBench bench;
    std::unique_ptr<Doctor> doctor;
    /// What the line says to a frame; a frame that is not in it goes unanswered.
    QMap<QString, QByteArray> answers{
        {QStringLiteral("ATH"), "ATH\r\n"},
        {QStringLiteral("ATS"), "RESP 02:00:00:00:00:01 TW60 2210 -61\r\n"},
        {QStringLiteral("ATD 020000000001"), "ATD 020000000001\r\nDATA\r\n"},
        {QStringLiteral("DI:C"), "OK:0\r\n"},
        {QStringLiteral("DT:0"), "OK:0\r\n"},
        {QStringLiteral("DT:1"), "OK:1\r\n"},
    };

    QStringList events;
    Problem problem;    // of the stage that failed
    Problem unrestored; // what could not be put back
    DoctorSummary summary;
    int ends = 0;

private:
    void tell(const QString& event) { events.append(event); }
    void answerFrame()
    {
        const QString frame = frames().constLast();
        const QByteArray answer = answers.value(frame);
        if (frame.startsWith(QLatin1String("DT:")) && answer.startsWith("OK:")) {
            answers[QStringLiteral("DI:C")] = answer; // the lock as it is now
        }
        if (!answer.isEmpty()) {
            driver->publish(QStringLiteral("listenEventsData"),
                            {{QStringLiteral("frame"), answer}, {QStringLiteral("number"), ++m_chunks}});
        }
    }
    ScriptedPlugin* make(const QString& name, const QMap<QString, Reaction>& reactions)
    {
        const ScriptedPlugin root(name, reactions, &talk);
        return static_cast<ScriptedPlugin*>(host.createInstance(root, QUuid::createUuid()));
    }

    int m_chunks = 0;
};
