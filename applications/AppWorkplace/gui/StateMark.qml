import QtQuick 2.15
import "widgets"

// What a device is doing, by its shape: a ring when nothing, a disc when it works, a ring with a dot on the way, a
// square cross with a problem.
Item {
    id: mark

    // As DeviceModel::State.
    property int deviceState: 0
    property bool hasProblem: false
    property color color: Style.textMutedColor

    readonly property bool isWorking: deviceState === 3 && !hasProblem
    readonly property bool isUnderWay: deviceState !== 0 && deviceState !== 3 && !hasProblem

    Rectangle {
        anchors.fill: parent
        border.color: mark.color
        border.width: Math.max(2, width / 8)
        color: mark.isWorking || mark.hasProblem ? mark.color : "transparent"
        radius: mark.hasProblem ? width / 12 : width / 2
    }

    Rectangle {
        anchors.centerIn: parent
        color: mark.color
        height: 0.4 * parent.height
        radius: height / 2
        visible: mark.isUnderWay
        width: height
    }

    UiGlyph {
        anchors.centerIn: parent
        color: Style.verdictTextColor
        height: 0.7 * parent.height
        name: mark.hasProblem ? "icon-bad" : mark.isWorking ? "icon-good" : ""
        width: height
    }
}
