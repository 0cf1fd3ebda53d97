import QtQuick 2.15

// Shows where the keyboard is: around what it fills. `control` is what has the focus.
Rectangle {
    property Item control: parent

    anchors.fill: parent
    anchors.margins: -border.width
    border.color: Style.focusColor
    border.width: Style.focusWidth
    color: "transparent"
    radius: Style.radius + border.width
    visible: control.visualFocus === undefined ? control.activeFocus : control.visualFocus
}
