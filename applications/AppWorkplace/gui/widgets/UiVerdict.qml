import QtQuick 2.15

// Good or not good, told by shape as well as by colour: a round tick, or a square cross. Neither while it is not known.
Item {
    id: verdict

    property bool isGood: false

    implicitHeight: 2.4 * Style.baseHeight
    implicitWidth: implicitHeight

    Accessible.role: Accessible.Graphic
    Accessible.name: isGood ? qsTr("good") : qsTr("not good")

    Rectangle {
        anchors.centerIn: parent
        color: verdict.isGood ? Style.goodColor : Style.badColor
        height: Math.min(parent.width, parent.height)
        radius: verdict.isGood ? width / 2 : width / 16
        width: height

        UiGlyph {
            anchors.centerIn: parent
            color: Style.verdictTextColor
            height: 0.66 * parent.height
            name: verdict.isGood ? "icon-good" : "icon-bad"
            width: height
        }
    }
}
