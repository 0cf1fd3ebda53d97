import QtQuick 2.15
import QtQuick.Controls 2.15
import QtQuick.Templates 2.15 as T
import QtQuick.Window 2.15
import "../widgets"

// The frame around a device's maintenance panel: its name, whether it is connected, and below them what the device's
// plugin shows, on paper. It sees to it that the keyboard reaches all of that, that one sees where it is, and that a reader of the
// screen knows what each field is for; a panel's document need not care.
FocusScope {
    id: panel

    // Of the device.
    property string name
    property bool connected: false
    // What the panel shows; it decides on its own height.
    property Item contentItem
    property real spacing: 2 * Style.baseHeight

    // The panel is to show fresh values.
    signal updateData()

    // Of the panel's own items, where the keyboard is; null: elsewhere.
    readonly property Item focusedItem: {
        const item = panel.Window.activeFocusItem
        return item !== null && isWithin(item, contentItem) ? item : null
    }

    function isWithin(item, ancestor) {
        while (item !== null && item !== ancestor) {
            item = item.parent
        }
        return item !== null
    }

    // The first text below the item that is no field and no button.
    function labelBelow(item) {
        for (let i = 0; i < item.children.length; ++i) {
            const child = item.children[i]
            if (child instanceof Text) {
                return child.text
            }
            const found = child instanceof TextInput || child instanceof T.AbstractButton ? "" : labelBelow(child)
            if (found !== "") {
                return found
            }
        }
        return ""
    }

    // What the nearest text says that stands in the same row, or in a row around it.
    function labelOf(item) {
        let label = ""
        for (let around = item.parent; around && label === "" && around !== panel; around = around.parent) {
            label = labelBelow(around)
        }
        return label
    }

    function prepare(item) {
        if (item instanceof TextInput) {
            item.activeFocusOnTab = true
            item.selectByMouse = true
            item.font = Qt.binding(function () { return Style.fontText })
            item.Accessible.role = Accessible.EditableText
            item.Accessible.name = Qt.binding(function () { return labelOf(item) })
        } else if (item instanceof T.AbstractButton) {
            item.font = Qt.binding(function () { return Style.fontText })
            item.palette = Qt.binding(function () { return look.palette })
            item.Accessible.role = Accessible.Button
            item.Accessible.name = Qt.binding(function () { return item.text })
        } else if (item instanceof Text && item.fontSizeMode !== Text.FixedSize) {
            item.font.pixelSize = Qt.binding(function () { return Style.fontText.pixelSize }) // from which it shrinks
        }
        for (let i = 0; i < item.children.length; ++i) {
            prepare(item.children[i])
        }
    }

    function bringIntoSight(item) {
        const top = item.mapToItem(flickable.contentItem, 0, 0).y
        const margin = Style.baseHeight
        if (top < flickable.contentY) {
            flickable.contentY = Math.max(0, top - margin)
        } else if (top + item.height > flickable.contentY + flickable.height) {
            flickable.contentY = top + item.height + margin - flickable.height
        }
    }

    onContentItemChanged: {
        if (contentItem) {
            contentItem.parent = flickable.contentItem
            prepare(contentItem)
        }
    }
    onFocusedItemChanged: {
        if (focusedItem !== null) {
            bringIntoSight(focusedItem)
        }
    }

    Accessible.role: Accessible.Pane
    Accessible.name: name

    // How buttons look on paper.
    Control {
        id: look

        palette {
            button: Style.paperButtonColor
            buttonText: Style.paperButtonTextColor
            mid: Style.paperButtonPressedColor
        }
    }

    Row {
        id: header

        anchors {
            left: parent.left
            leftMargin: Style.baseWidth
            top: parent.top
            topMargin: Style.baseHeight
        }
        height: 4 * Style.baseHeight
        spacing: Style.baseWidth

        Rectangle {
            id: state

            Accessible.role: Accessible.Indicator
            Accessible.name: words.text

            anchors.verticalCenter: parent.verticalCenter
            width: 1.6 * Style.baseHeight
            height: width
            radius: panel.connected ? width / 2 : 0 // told by the shape as well as by the colour
            color: panel.connected ? Style.goodColor : Style.badColor
        }

        UiLabel {
            id: title

            anchors.verticalCenter: parent.verticalCenter
            font: Style.fontTitle
            text: panel.name
            width: Math.min(implicitWidth,
                            panel.width - state.width - words.implicitWidth - 2 * parent.spacing - 2 * Style.baseWidth)
        }

        UiLabel {
            id: words

            anchors.verticalCenter: parent.verticalCenter
            isMuted: true
            text: panel.connected ? qsTr("line open") : qsTr("line not open")
        }
    }

    // Rows of a panel may be a little wider than the panel says.
    Rectangle {
        anchors {
            left: parent.left
            right: parent.right
            rightMargin: -Style.baseWidth
            top: flickable.top
            topMargin: -Style.baseHeight
            bottom: parent.bottom
        }
        color: Style.paperColor
    }

    Flickable {
        id: flickable

        anchors {
            left: header.left
            right: parent.right
            rightMargin: -Style.baseWidth
            top: header.bottom
            topMargin: panel.spacing
            bottom: parent.bottom
        }
        clip: true
        contentWidth: panel.contentItem ? panel.contentItem.width : 0
        contentHeight: panel.contentItem ? panel.contentItem.height + Style.baseHeight : 0
        boundsBehavior: Flickable.StopAtBounds

        ScrollBar.vertical: UiScrollBar {}
    }

    // Around the item that has the focus; inside it, for it may fill its place.
    Rectangle {
        id: ring

        readonly property rect place: {
            const item = panel.focusedItem
            if (item === null) {
                return Qt.rect(0, 0, 0, 0)
            }
            // Read so that the ring follows when these change.
            const changes = [panel.width, panel.height, flickable.contentY, item.width, item.height]
            return changes.length === 0 ? Qt.rect(0, 0, 0, 0) : panel.mapFromItem(item, 0, 0, item.width, item.height)
        }

        x: place.x
        y: place.y
        width: place.width
        height: place.height
        border.color: Style.paperFocusColor
        border.width: Style.focusWidth
        color: "transparent"
        visible: panel.focusedItem !== null
    }
}
