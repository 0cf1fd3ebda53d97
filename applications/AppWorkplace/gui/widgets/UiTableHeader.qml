import QtQuick 2.15

// The titles of a table. `columns`: a list of { title, width, isRight }, the widths as shares of the whole, which need not
// come to 1.
Rectangle {
    id: header

    property var columns: []

    color: Style.windowColor
    implicitHeight: 3.4 * Style.baseHeight

    Row {
        anchors.fill: parent

        Repeater {
            model: header.columns

            UiLabel {
                font: Style.fontCaption
                height: header.height
                horizontalAlignment: modelData.isRight ? Text.AlignRight : Text.AlignLeft
                isMuted: true
                leftPadding: Style.baseHeight
                rightPadding: Style.baseHeight
                text: modelData.title
                width: header.width * modelData.width / Style.sumOfWidths(header.columns)
            }
        }
    }

    Rectangle {
        anchors.bottom: parent.bottom
        color: Style.frameColor
        height: Style.lineWidth
        width: parent.width
    }
}
