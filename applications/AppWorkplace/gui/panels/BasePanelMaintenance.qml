import QtQuick 2.15
import QtQuick.Controls 2.15
import "../widgets"

// The frame around a device's maintenance panel: its name, whether it is connected, and below them what the device's
// plugin shows.
Item {
    id: panel

    // Of the device.
    property string name
    property bool connected: false
    // What the panel shows; it decides on its own height.
    property Item contentItem
    property real spacing: 2 * Style.baseHeight

    // The panel is to show fresh values.
    signal updateData()

    onContentItemChanged: {
        if (contentItem) {
            contentItem.parent = flickable.contentItem
        }
    }

    Accessible.role: Accessible.Pane
    Accessible.name: name

    Row {
        id: header

        anchors {
            left: parent.left
            leftMargin: Style.baseWidth
            top: parent.top
            topMargin: Style.baseHeight
        }
        height: 4 * Style.baseHeight
        spacing: Style.baseWidth

        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            width: 1.6 * Style.baseHeight
            height: width
            radius: panel.connected ? width / 2 : 0 // told by the shape as well as by the colour
            color: panel.connected ? Style.goodColor : Style.badColor
        }

        Text {
            anchors.verticalCenter: parent.verticalCenter
            color: Style.textColor
            font: Style.fontTitle
            text: panel.name
            textFormat: Text.PlainText
        }
    }

    Rectangle {
        anchors {
            left: parent.left
            right: parent.right
            top: flickable.top
            topMargin: -Style.baseHeight
            bottom: parent.bottom
        }
        color: Style.paperColor
    }

    Flickable {
        id: flickable

        anchors {
            left: header.left
            right: parent.right // rows of a panel may be a little wider than the panel says
            top: header.bottom
            topMargin: panel.spacing
            bottom: parent.bottom
        }
        clip: true
        contentWidth: panel.contentItem ? panel.contentItem.width : 0
        contentHeight: panel.contentItem ? panel.contentItem.height : 0
        boundsBehavior: Flickable.StopAtBounds
    }
}
