import QtQuick 2.15
import ".."
import "../widgets"

// How the link to the wrench is, in words; what runs; and the buttons that begin and end the work.
UiCard {
    id: bar

    property var device

    readonly property int deviceState: device ? device.state : 0
    readonly property string text: !device ? "" : device.busyText !== "" ? device.busyText : device.stateText

    // Which wrench is not known.
    signal connectAsked()

    contentHeight: Style.touchSize

    Accessible.role: Accessible.StatusBar
    Accessible.name: text

    StateMark {
        id: mark

        anchors.verticalCenter: parent.verticalCenter
        color: hasProblem ? Style.badColor : bar.deviceState === 3 ? Style.goodColor
            : bar.deviceState === 0 ? Style.textMutedColor : Style.noticeColor
        deviceState: bar.deviceState
        hasProblem: bar.device ? bar.device.hasProblem : false
        height: 3.4 * Style.baseHeight
        width: height
    }

    Column {
        anchors {
            left: mark.right
            leftMargin: Style.spacing
            right: buttons.left
            rightMargin: Style.spacing
            verticalCenter: parent.verticalCenter
        }

        UiLabel {
            font: Style.fontLabel
            text: bar.device ? bar.device.name : ""
            width: parent.width
        }

        UiLabel {
            lineHeight: 0.9
            maximumLineCount: 2
            text: bar.text
            width: parent.width
            wrapMode: Text.Wrap
        }
    }

    Row {
        id: buttons

        anchors {
            right: parent.right
            verticalCenter: parent.verticalCenter
        }
        spacing: Style.spacing

        UiSpinner {
            anchors.verticalCenter: parent.verticalCenter
            visible: bar.device ? bar.device.busyText !== "" : false
        }

        UiButton {
            glyph: "icon-start"
            isPrimary: true
            objectName: bar.objectName + ".idStart"
            text: qsTr("Connect")
            visible: bar.deviceState === 0
            onClicked: bar.device && bar.device.serialId !== "" ? bar.device.work(bar.device.serialId) : bar.connectAsked()
        }

        UiButton {
            enabled: bar.deviceState !== 5
            glyph: "icon-stop"
            objectName: bar.objectName + ".idStop"
            text: bar.deviceState === 3 || bar.deviceState === 4 ? qsTr("Disconnect") : qsTr("Stop")
            visible: bar.deviceState !== 0
            onClicked: bar.device.stop()
        }
    }
}
