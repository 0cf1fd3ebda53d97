#pragma once

#include <QByteArray>

/// What pages show, for scenes of their own: objects with the properties of the window's models, which note what they
/// are asked to do. Each is a piece of a QML document.
namespace window_fakes {

/// A device that works with wrench 2210: two programs, four results.
inline QByteArray workingDevice()
{
    return R"(QtObject {
        property string name: "Wrench 2210"
        property string port: "/dev/ttyUSB0"
        property string serialId: "2210"
        property bool isSimulated: false
        property int state: 3
        property string stateText: "ready: results are taken"
        property bool hasProblem: problemWhat !== ""
        property string problemWhat
        property string problemCause
        property string problemMend
        property var wrenches: [{ mac: "AA:BB:CC:00:00:01", sn: "2210", rssi: "-54" },
                                { mac: "AA:BB:CC:00:00:02", sn: "2211", rssi: "-78" }]
        property var programs: [
            { progId: 1, name: "Program 1", target: 12, unit: "Nm", angle: "90", snugTorque: "6.0", readings: "1" },
            { progId: 2, name: "Program 2", target: 25, unit: "Nm", angle: "45", snugTorque: "6.0", readings: "1" }]
        property int program: 2
        property bool isLocked: false
        property bool isLockKnown: true
        property string busyText
        property var result: ({ torqueText: "25.06", torque: 25.06, unit: "Nm", angle: "44.8", direction: "0",
                                number: "4", program: 2, isGood: true, arrived: new Date(2026, 0, 5, 14, 3, 9) })
        property var recent: ListModel {
            ListElement { torque: 25.1; isGood: true }
            ListElement { torque: 24.8; isGood: true }
            ListElement { torque: 27.3; isGood: false }
            ListElement { torque: 25.06; isGood: true }
        }
        property real target: 25
        property bool hasTarget: true
        property int good: 3
        property int notGood: 1
        property string notes
        property string pluginUuid
        property string objectId
        property string reference

        property var asked: []
        function note(what) { asked = asked.concat(what) }
        function scan() { note("scan") }
        function work(number) { note("work " + number) }
        function stop() { note("stop") }
        function selectProgram(number) { note("program " + number) }
        function setLock(isLocked) { note("lock " + isLocked) }
        function forgetProblem() { note("forget"); problemWhat = "" }
    })";
}

/// The same before anything was done.
inline QByteArray idleDevice()
{
    QByteArray device = workingDevice();
    device.replace("property int state: 3", "property int state: 0");
    device.replace("ready: results are taken", "not connected");
    device.replace("isLockKnown: true", "isLockKnown: false");
    device.replace("property int program: 2", "property int program: 0");
    device.replace("property bool hasTarget: true", "property bool hasTarget: false");
    const auto cut = [&](const char* from, const char* to, const char* with) {
        const int begin = device.indexOf(from);
        device.replace(begin, device.indexOf(to, begin) - begin, with);
    };
    cut("property var wrenches:", "property var programs:", "property var wrenches: []\n");
    cut("property var programs:", "property int program:", "property var programs: []\n");
    cut("property var result:", "property var recent:", "property var result: ({})\n");
    cut("property var recent:", "property real target:", "property var recent: ListModel {}\n");
    return device;
}

/// The window's own model, of these devices.
inline QByteArray window(const QByteArray& devices)
{
    return R"(QtObject {
        id: fakeWindow
        property var devices: ListModel {}
        property list<QtObject> list: [)" +
           devices + R"(]
        property int currentIndex: 0
        property var current: list[currentIndex]
        property string theme: "light"
        property string language: "en"
        property var languages: ["en", "de", "fr"]
        property string version: "0.1.0"
        property string page: "work"
        Component.onCompleted: {
            for (var i = 0; i < list.length; ++i) {
                devices.append({ device: list[i] })
            }
        }
    })";
}

} // namespace window_fakes
