#include "session_step.h"

// The scan inside "connect" has a limit of its own, 10 s; dialling has none.
SessionStepText textOf(SessionStep step)
{
    switch (step) {
    case SessionStep::Open:
        return {QStringLiteral("open"), 5000, QStringLiteral("the line could not be opened"),
                QStringLiteral("check the port and the cable; \"app_workplace ports\" lists the ports")};
    case SessionStep::Connect:
        return {QStringLiteral("connect"), 20000, QStringLiteral("the wrench could not be connected"),
                QStringLiteral("switch the wrench on, bring it near and check the serial number; \"app_workplace "
                               "scan\" lists what is in range")};
    case SessionStep::Configure:
        return {QStringLiteral("configure"), 5000, QStringLiteral("the wrench could not be configured"),
                QStringLiteral("bring the wrench nearer and try again")};
    case SessionStep::Programs:
        return {QStringLiteral("programs"), 60000, QStringLiteral("the wrench's programs could not be read"),
                QStringLiteral("finish the tightening that is going on, bring the wrench nearer and try again")};
    case SessionStep::Select:
        return {QStringLiteral("select"), 30000, QStringLiteral("the program could not be selected"),
                QStringLiteral("choose one of the listed programs with --program")};
    case SessionStep::Unlock:
        return {QStringLiteral("unlock"), 5000, QStringLiteral("the wrench could not be unlocked"),
                QStringLiteral("bring the wrench nearer and try again")};
    case SessionStep::Listen:
        return {QStringLiteral("listen"), 0, QStringLiteral("the results could not be listened to"),
                QStringLiteral("try again")};
    }
    Q_UNREACHABLE();
}
