import QtQuick 2.15

// What runs, and the button that stops it. Gone while nothing runs.
Item {
    id: busy

    // What runs; empty: nothing.
    property string text
    property bool canBeStopped: true

    signal stopped()

    implicitHeight: Style.touchSize
    visible: text !== ""

    Accessible.role: Accessible.StatusBar
    Accessible.name: text

    UiSpinner {
        id: picture

        anchors.verticalCenter: parent.verticalCenter
    }

    UiLabel {
        anchors {
            left: picture.right
            leftMargin: Style.baseHeight
            right: stop.visible ? stop.left : parent.right
            rightMargin: Style.baseHeight
            verticalCenter: parent.verticalCenter
        }
        maximumLineCount: 2
        text: busy.text
        wrapMode: Text.Wrap
    }

    UiButton {
        id: stop

        anchors {
            right: parent.right
            verticalCenter: parent.verticalCenter
        }
        description: qsTr("Stop: %1").arg(busy.text)
        glyph: "icon-stop"
        objectName: busy.objectName + ".idStop"
        text: qsTr("Stop")
        visible: busy.canBeStopped
        onClicked: busy.stopped()
    }
}
