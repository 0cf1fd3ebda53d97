#include "session_step.h"

#include <QCoreApplication>
// The scan inside "connect" has a limit of its own, 10 s; dialling has none.
SessionStepText textOf(SessionStep step)
{
    switch (step) {
    case SessionStep::Open:
        return {QStringLiteral("open"), 5000,
                QCoreApplication::translate("SessionStep", "the line could not be opened"),
                QCoreApplication::translate("SessionStep",
                                            "check the port and the cable; \"app_workplace ports\" lists the ports")};
    case SessionStep::Connect:
        return {QStringLiteral("connect"), 20000,
                QCoreApplication::translate("SessionStep", "the wrench could not be connected"),
                QCoreApplication::translate(
                    "SessionStep", "switch the wrench on, bring it near and check the serial number; \"app_workplace "
                                   "scan\" lists what is in range")};
    case SessionStep::Configure:
        return {QStringLiteral("configure"), 5000,
                QCoreApplication::translate("SessionStep", "the wrench could not be configured"),
                QCoreApplication::translate("SessionStep", "bring the wrench nearer and try again")};
    case SessionStep::Programs:
        return {QStringLiteral("programs"), 60000,
                QCoreApplication::translate("SessionStep", "the wrench's programs could not be read"),
                QCoreApplication::translate(
                    "SessionStep", "finish the tightening that is going on, bring the wrench nearer and try again")};
    case SessionStep::Select:
        return {QStringLiteral("select"), 30000,
                QCoreApplication::translate("SessionStep", "the program could not be selected"),
                QCoreApplication::translate("SessionStep", "choose one of the listed programs with --program")};
    case SessionStep::Unlock:
        return {QStringLiteral("unlock"), 5000,
                QCoreApplication::translate("SessionStep", "the wrench could not be unlocked"),
                QCoreApplication::translate("SessionStep", "bring the wrench nearer and try again")};
    case SessionStep::Listen:
        return {QStringLiteral("listen"), 0,
                QCoreApplication::translate("SessionStep", "the results could not be listened to"),
                QCoreApplication::translate("SessionStep", "try again")};
    }
    Q_UNREACHABLE();
}
