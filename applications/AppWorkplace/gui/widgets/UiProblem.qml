import QtQuick 2.15

// What went wrong, why, and what to do. Gone while nothing is wrong.
Rectangle {
    id: problem

    property string what
    property string cause
    property string mend
    property bool canBeClosed: true

    signal closed()

    border.color: Style.badColor
    border.width: 2 * Style.lineWidth
    color: Style.surfaceColor
    implicitHeight: Math.max(Style.touchSize, column.implicitHeight) + 2 * Style.spacing
    radius: Style.radius
    visible: what !== ""

    Accessible.role: Accessible.AlertMessage
    Accessible.name: [what, cause, mend].filter(function (text) { return text !== "" }).join("\n")

    UiGlyph {
        id: picture

        anchors {
            left: parent.left
            leftMargin: Style.spacing
            verticalCenter: parent.verticalCenter
        }
        color: Style.badColor
        height: 4 * Style.baseHeight
        name: "icon-warning"
        width: height
    }

    Column {
        id: column

        anchors {
            left: picture.right
            leftMargin: Style.spacing
            right: close.visible ? close.left : parent.right
            rightMargin: Style.spacing
            verticalCenter: parent.verticalCenter
        }
        spacing: 0.3 * Style.baseHeight

        UiLabel {
            font: Style.fontLabel
            text: problem.what
            width: parent.width
            wrapMode: Text.Wrap
        }

        UiLabel {
            text: problem.cause
            visible: text !== ""
            width: parent.width
            wrapMode: Text.Wrap
        }

        UiLabel {
            isMuted: true
            text: problem.mend
            visible: text !== ""
            width: parent.width
            wrapMode: Text.Wrap
        }
    }

    UiButton {
        id: close

        anchors {
            right: parent.right
            rightMargin: Style.spacing
            verticalCenter: parent.verticalCenter
        }
        description: qsTr("Close this message")
        glyph: "icon-close"
        isFlat: true
        objectName: problem.objectName + ".idClose"
        visible: problem.canBeClosed
        onClicked: problem.closed()
    }
}
