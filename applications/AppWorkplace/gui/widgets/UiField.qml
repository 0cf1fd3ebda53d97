import QtQuick 2.15
import QtQuick.Templates 2.15 as T

// A line of text to be typed, with its caption above it, inside the frame.
T.TextField {
    id: field

    property string caption

    Accessible.role: Accessible.EditableText
    Accessible.name: caption

    implicitHeight: Style.touchSize
    implicitWidth: 18 * Style.baseHeight
    leftPadding: Style.baseHeight
    rightPadding: Style.baseHeight
    topPadding: caption === "" ? 0 : Style.captionHeight
    bottomPadding: caption === "" ? 0 : 0.4 * Style.baseHeight
    activeFocusOnTab: true
    color: enabled ? Style.textColor : Style.textDisabledColor
    font: Style.fontText
    placeholderTextColor: Style.textMutedColor
    selectByMouse: true
    selectedTextColor: Style.accentTextColor
    selectionColor: Style.accentColor
    verticalAlignment: TextInput.AlignVCenter

    background: Rectangle {
        border.color: field.enabled ? (field.acceptableInput ? Style.borderColor : Style.badColor)
                                    : Style.widgetDisabledBorderColor
        border.width: Style.lineWidth
        color: Style.surfaceColor
        radius: Style.radius

        UiFocusRing {
            control: field
            visible: field.activeFocus
        }
    }

    UiLabel {
        x: field.leftPadding
        y: 0.4 * Style.baseHeight
        font: Style.fontCaption
        isMuted: true
        text: field.caption
        visible: text !== ""
        width: field.width - field.leftPadding - field.rightPadding
    }

    UiLabel {
        x: field.leftPadding
        y: field.topPadding
        color: field.placeholderTextColor
        height: field.height - field.topPadding - field.bottomPadding
        text: field.placeholderText
        visible: field.text === "" && field.preeditText === ""
        width: field.width - field.leftPadding - field.rightPadding
    }
}
