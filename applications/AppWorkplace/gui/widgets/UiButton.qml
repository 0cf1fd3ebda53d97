import QtQuick 2.15
import QtQuick.Templates 2.15 as T

// A button of a text, a glyph or both.
T.Button {
    id: button

    property string glyph
    // What the page is for: it stands out.
    property bool isPrimary: false
    // The one among its like that is in effect.
    property bool isChosen: false
    // Without a frame, for rows of buttons.
    property bool isFlat: false
    // Told to who cannot see it, when the text alone does not say it.
    property string description: text
    property int alignment: Qt.AlignHCenter

    // With the gap between it and the words.
    readonly property real pictureWidth: glyph === "" ? 0 : picture.width + (text === "" ? 0 : row.spacing)
    readonly property color inkColor: !enabled ? Style.textDisabledColor
                                               : isPrimary || isChosen ? Style.accentTextColor : Style.textColor

    Accessible.role: Accessible.Button
    Accessible.name: description
    Accessible.selected: isChosen
    Accessible.onPressAction: button.clicked()

    implicitHeight: Style.touchSize
    implicitWidth: Math.max(Style.touchSize, Math.ceil(pictureWidth + words.implicitWidth) + leftPadding + rightPadding)
    padding: 1.5 * Style.baseHeight
    topPadding: 0
    bottomPadding: 0
    focusPolicy: Qt.StrongFocus
    font: Style.fontText

    Keys.onEnterPressed: button.clicked()
    Keys.onReturnPressed: button.clicked()

    background: Rectangle {
        border.color: button.isFlat ? "transparent" : button.enabled ? Style.borderColor : Style.widgetDisabledBorderColor
        border.width: Style.lineWidth
        color: button.enabled && (button.isPrimary || button.isChosen)
               ? (button.down ? Style.accentPressedColor : Style.accentColor)
               : button.down ? Style.pressedColor
                             : button.hovered && button.enabled ? Style.hoverColor
                                                                : button.isFlat ? "transparent" : Style.surfaceColor
        radius: Style.radius

        UiFocusRing { control: button }
    }

    contentItem: Item {
        Row {
            id: row

            anchors.verticalCenter: parent.verticalCenter
            x: button.alignment === Qt.AlignLeft ? 0 : Math.max(0, Math.round((parent.width - width) / 2))
            spacing: Style.baseHeight

            UiGlyph {
                id: picture

                anchors.verticalCenter: parent.verticalCenter
                color: button.inkColor
                height: 2.4 * Style.baseHeight
                name: button.glyph
                visible: button.glyph !== ""
                width: height
            }

            UiLabel {
                id: words

                anchors.verticalCenter: parent.verticalCenter
                color: button.inkColor
                font: button.font
                text: button.text
                visible: button.text !== ""
                width: Math.min(implicitWidth, Math.max(0, button.availableWidth - button.pictureWidth))
            }
        }
    }
}
