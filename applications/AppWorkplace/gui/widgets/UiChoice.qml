import QtQuick 2.15
import QtQuick.Templates 2.15 as T

// One of a list, with its caption above it, inside the frame. The model is a list of texts, or of objects with the role
// that textRole names.
T.ComboBox {
    id: choice

    property string caption

    Accessible.role: Accessible.ComboBox
    Accessible.name: caption === "" ? displayText : caption + ": " + displayText

    implicitHeight: Style.touchSize
    implicitWidth: 18 * Style.baseHeight
    leftPadding: Style.baseHeight
    rightPadding: 3.5 * Style.baseHeight
    topPadding: caption === "" ? 0 : Style.captionHeight
    bottomPadding: caption === "" ? 0 : 0.4 * Style.baseHeight
    focusPolicy: Qt.StrongFocus
    font: Style.fontText

    Keys.onEnterPressed: popup.visible ? popup.close() : popup.open()
    Keys.onReturnPressed: popup.visible ? popup.close() : popup.open()

    background: Rectangle {
        border.color: choice.enabled ? Style.borderColor : Style.widgetDisabledBorderColor
        border.width: Style.lineWidth
        color: choice.down ? Style.pressedColor : choice.hovered ? Style.hoverColor : Style.surfaceColor
        radius: Style.radius

        UiFocusRing { control: choice }
    }

    UiLabel {
        x: choice.leftPadding
        y: 0.4 * Style.baseHeight
        font: Style.fontCaption
        isMuted: true
        text: choice.caption
        visible: text !== ""
        width: choice.width - choice.leftPadding - choice.rightPadding
    }

    contentItem: UiLabel {
        color: choice.enabled ? Style.textColor : Style.textDisabledColor
        font: choice.font
        text: choice.displayText
    }

    indicator: UiGlyph {
        x: choice.width - width - Style.baseHeight
        y: (choice.height - height) / 2
        color: choice.enabled ? Style.textColor : Style.textDisabledColor
        height: 2 * Style.baseHeight
        name: "icon-down"
        width: height
    }

    delegate: T.ItemDelegate {
        id: entry

        readonly property bool isCurrent: choice.currentIndex === index

        Accessible.role: Accessible.ListItem
        Accessible.name: text

        focusPolicy: Qt.NoFocus
        height: Style.touchSize
        highlighted: choice.highlightedIndex === index
        objectName: choice.objectName + "." + index
        text: choice.textRole === "" ? modelData
                                     : modelData === undefined ? model[choice.textRole] : modelData[choice.textRole]
        width: ListView.view ? ListView.view.width : 0

        background: Rectangle { color: entry.highlighted ? Style.accentColor : "transparent" }

        contentItem: UiLabel {
            color: entry.highlighted ? Style.accentTextColor : Style.textColor
            font.bold: entry.isCurrent
            font.pixelSize: Style.fontText.pixelSize
            leftPadding: Style.baseHeight
            text: entry.text
        }
    }

    popup: T.Popup {
        y: choice.height
        height: Math.min(implicitHeight, 12 * Style.touchSize)
        implicitHeight: contentItem.implicitHeight + 2 * padding
        margins: Style.baseHeight
        padding: Style.lineWidth
        width: choice.width

        background: Rectangle {
            border.color: Style.borderColor
            border.width: Style.lineWidth
            color: Style.surfaceColor
        }

        contentItem: ListView {
            boundsBehavior: Flickable.StopAtBounds
            clip: true
            currentIndex: choice.highlightedIndex
            implicitHeight: contentHeight
            model: choice.popup.visible ? choice.delegateModel : null

            T.ScrollBar.vertical: UiScrollBar {}
        }
    }
}
