#include "device_texts.h"

#include <QCoreApplication>
#include <QLocale>

namespace {

constexpr double c_millisecondsPerSecond = 1000;

} // namespace

QString device_texts::starting(SessionStep step, const QString& serialId)
{
    switch (step) {
    case SessionStep::Open:
        return QCoreApplication::translate("DeviceModel", "opening the line");
    case SessionStep::Connect:
        return QCoreApplication::translate("DeviceModel", "looking for the wrench %1, and connecting").arg(serialId);
    case SessionStep::Configure:
        return QCoreApplication::translate("DeviceModel", "configuring the wrench");
    case SessionStep::Programs:
        return QCoreApplication::translate("DeviceModel", "reading the programs");
    case SessionStep::Select:
        return QCoreApplication::translate("DeviceModel", "selecting the program");
    case SessionStep::Unlock:
    case SessionStep::Listen:
        return QCoreApplication::translate("DeviceModel", "unlocking the wrench");
    }
    Q_UNREACHABLE();
}

QString device_texts::lostLink(const LinkReport& report)
{
    switch (report.kind) {
    case LinkReport::Kind::Waiting:
        return QCoreApplication::translate("DeviceModel", "link lost; attempt %1 in %2 s: %3")
            .arg(report.attempt)
            .arg(QLocale().toString(report.pauseMs / c_millisecondsPerSecond, 'f', 1), report.message);
    case LinkReport::Kind::Restoring:
        return QCoreApplication::translate("DeviceModel", "link lost; attempt %1 to restore it").arg(report.attempt);
    case LinkReport::Kind::Opened:
    case LinkReport::Kind::Lost:
    case LinkReport::Kind::Restored:
        return QCoreApplication::translate("DeviceModel", "link lost: %1").arg(report.message);
    }
    Q_UNREACHABLE();
}
