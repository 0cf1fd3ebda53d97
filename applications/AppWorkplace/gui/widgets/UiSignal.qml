import QtQuick 2.15

// How strong a radio signal is, as bars: one to four.
Item {
    id: signalBars

    // In dBm.
    property real rssi: -100
    property color color: Style.textColor

    readonly property int bars: rssi >= -60 ? 4 : rssi >= -70 ? 3 : rssi >= -80 ? 2 : 1

    implicitHeight: 2.4 * Style.baseHeight
    implicitWidth: 3 * Style.baseHeight

    Row {
        anchors.fill: parent
        spacing: parent.width / 14

        Repeater {
            model: 4

            Rectangle {
                anchors.bottom: parent.bottom
                border.color: signalBars.color
                border.width: Style.lineWidth
                color: index < signalBars.bars ? signalBars.color : "transparent"
                height: parent.height * (index + 1) / 4
                width: (signalBars.width - 3 * parent.spacing) / 4
            }
        }
    }
}
