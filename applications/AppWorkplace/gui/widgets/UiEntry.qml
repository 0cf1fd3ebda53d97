import QtQuick 2.15
import QtQuick.Templates 2.15 as T

// One of a list that is chosen with one touch: what it is, and below it a little more. What else it shows stands at its
// right.
T.Button {
    id: entry

    property string detail
    property string glyph
    // The one among its like that is in effect.
    property bool isChosen: false
    default property alias extra: place.data

    readonly property color inkColor: !enabled ? Style.textDisabledColor
                                               : isChosen ? Style.accentTextColor : Style.textColor

    Accessible.role: Accessible.Button
    Accessible.name: detail === "" ? text : text + ", " + detail
    Accessible.selected: isChosen
    Accessible.onPressAction: entry.clicked()

    focusPolicy: Qt.StrongFocus
    font: Style.fontText
    implicitHeight: Math.max(Style.touchSize, 5.6 * Style.baseHeight)
    implicitWidth: 24 * Style.baseHeight
    leftPadding: 1.2 * Style.baseHeight
    rightPadding: 1.2 * Style.baseHeight

    Keys.onEnterPressed: entry.clicked()
    Keys.onReturnPressed: entry.clicked()

    background: Rectangle {
        border.color: entry.isChosen ? Style.accentColor
                                     : entry.enabled ? Style.borderColor : Style.widgetDisabledBorderColor
        border.width: entry.isChosen ? 2 * Style.lineWidth : Style.lineWidth
        color: entry.isChosen && entry.enabled ? (entry.down ? Style.accentPressedColor : Style.accentColor)
                              : entry.down ? Style.pressedColor
                                           : entry.hovered && entry.enabled ? Style.hoverColor : Style.surfaceColor
        radius: Style.radius

        UiFocusRing { control: entry }
    }

    contentItem: Item {
        UiGlyph {
            id: picture

            anchors.verticalCenter: parent.verticalCenter
            color: entry.inkColor
            height: 2.4 * Style.baseHeight
            name: entry.glyph
            visible: name !== ""
            width: visible ? height : 0
        }

        Column {
            anchors {
                left: picture.right
                leftMargin: picture.visible ? Style.baseHeight : 0
                right: place.left
                rightMargin: place.width > 0 ? Style.baseHeight : 0
                verticalCenter: parent.verticalCenter
            }

            UiLabel {
                color: entry.inkColor
                font.bold: true
                font.pixelSize: Style.fontText.pixelSize
                text: entry.text
                width: parent.width
            }

            UiLabel {
                color: !entry.enabled || entry.isChosen ? entry.inkColor : Style.textMutedColor
                font: Style.fontCaption
                text: entry.detail
                visible: text !== ""
                width: parent.width
            }
        }

        Item {
            id: place

            anchors.right: parent.right
            height: parent.height
            width: childrenRect.width
        }
    }
}
