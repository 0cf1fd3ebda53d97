import QtQuick 2.15

// A piece of a page: a surface with a frame and, when there is one, a title. What stands in it fills what is left.
Rectangle {
    id: card

    property string title
    property real padding: Style.spacing
    // How high what stands in it would like to be; from it the card's own implicit height.
    property real contentHeight: 0
    default property alias content: place.data

    border.color: Style.frameColor
    border.width: Style.lineWidth
    color: Style.surfaceColor
    implicitHeight: place.anchors.topMargin + contentHeight + padding
    radius: Style.radius

    UiLabel {
        id: heading

        x: card.padding
        y: card.padding
        font: Style.fontLabel
        text: card.title
        visible: text !== ""
        width: card.width - 2 * card.padding
    }

    Item {
        id: place

        anchors {
            fill: parent
            margins: card.padding
            topMargin: heading.visible ? heading.y + heading.height + 0.5 * card.padding : card.padding
        }
    }
}
