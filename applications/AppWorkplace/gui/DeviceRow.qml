import QtQuick 2.15
import "widgets"

// One device in the list: its name, and what it is doing by shape, word and colour.
Rectangle {
    id: row

    property var device
    property bool isCurrent: false
    property bool isFocused: false

    readonly property int state_: device ? device.state : 0
    readonly property bool isWorking: state_ === 3
    readonly property bool isRestoring: state_ === 4
    readonly property string word: !device ? "" : device.hasProblem ? qsTr("problem") : [qsTr("not connected"),
        qsTr("scanning"), qsTr("connecting"), qsTr("connected"), qsTr("restoring"), qsTr("ending")][state_] || ""
    readonly property color stateColor: device && device.hasProblem ? Style.badColor : isWorking ? Style.goodColor
        : state_ === 0 ? Style.textMutedColor : Style.noticeColor

    signal chosen()

    Accessible.role: Accessible.ListItem
    Accessible.name: device ? qsTr("%1: %2").arg(device.name).arg(word) : ""
    Accessible.selected: isCurrent
    Accessible.onPressAction: chosen()

    color: mouse.pressed ? Style.pressedColor : isCurrent ? Style.hoverColor : "transparent"
    height: Math.max(Style.touchSize, 5.4 * Style.baseHeight)

    // Which one is shown: not by its colour alone.
    Rectangle {
        color: Style.accentColor
        height: parent.height
        visible: row.isCurrent
        width: 0.5 * Style.baseHeight
    }

    StateMark {
        id: mark

        anchors.verticalCenter: parent.verticalCenter
        color: row.stateColor
        height: 2.2 * Style.baseHeight
        hasProblem: row.device ? row.device.hasProblem : false
        deviceState: row.state_
        width: height
        x: 1.5 * Style.baseHeight
    }

    Column {
        anchors {
            left: mark.right
            leftMargin: Style.baseHeight
            right: parent.right
            rightMargin: Style.baseHeight
            verticalCenter: parent.verticalCenter
        }

        UiLabel {
            font.bold: row.isCurrent
            font.pixelSize: Style.fontText.pixelSize
            text: row.device ? row.device.name : ""
            width: parent.width
        }

        UiLabel {
            color: row.stateColor
            font: Style.fontCaption
            text: row.word
            width: parent.width
        }
    }

    MouseArea {
        id: mouse

        anchors.fill: parent
        onClicked: row.chosen()
    }

    UiFocusRing {
        anchors.margins: 0
        control: row
        visible: row.isFocused
    }
}
