import QtQuick 2.15

// A list of any length. Items are made for the rows that are seen and kept while it is scrolled; and its scene does not
// grow with the list, for the scene counts in single precision and would place the rows of a long one wrongly.
//
// rows: a VisibleRows; the roles "cells" (a list, what stands in the columns) and "note" (a text) are shown. delegate:
// shows one row; its parent has the properties cells, note, row and isCurrent.
FocusScope {
    id: list

    property var rows: null
    property Component delegate: null
    property real rowHeight: Style.touchSize
    // The row that the keys are at; -1: none.
    property int currentRow: -1
    property string description

    readonly property int count: rows ? rows.count : 0
    readonly property real fullHeight: count * rowHeight
    // From the beginning of the list to what is seen first, in pixels.
    property real position: 0
    readonly property bool isAtBeginning: position <= 0
    // Rows that have come before what is seen, since it was at the beginning.
    property int arrivals: 0

    // What a flick can reach at a time; the list moves on below it.
    readonly property real reach: Math.min(fullHeight, 2000000)
    property real base: 0
    property bool isPlacing: false

    signal activated(int row)

    function clamp(value, most) {
        return Math.max(0, Math.min(value, most))
    }

    function scrollTo(pixels) {
        var to = clamp(pixels, fullHeight - height)
        isPlacing = true
        base = clamp(to - reach / 2, fullHeight - reach)
        flickable.contentY = to - base
        isPlacing = false
        position = to
    }

    function reveal(row) {
        var top = row * rowHeight
        if (top < position) {
            scrollTo(top)
        } else if (top + rowHeight > position + height) {
            scrollTo(top + rowHeight - height)
        }
    }

    function goTo(row) {
        if (count > 0) {
            currentRow = clamp(row, count - 1)
            reveal(currentRow)
        }
    }

    function shown(row) {
        return row >= 0 && row < count
    }

    function placeBar() {
        if (!bar.pressed) {
            bar.position = fullHeight > 0 ? position / fullHeight : 0
        }
    }

    onPositionChanged: placeBar()
    onFullHeightChanged: placeBar()
    onIsAtBeginningChanged: arrivals = 0
    onHeightChanged: scrollTo(position)
    onRowHeightChanged: scrollTo(position)

    activeFocusOnTab: true
    clip: true

    Accessible.role: Accessible.Table
    Accessible.name: description
    Accessible.focusable: true

    Keys.onUpPressed: goTo(currentRow - 1)
    Keys.onDownPressed: goTo(currentRow + 1)
    Keys.onReturnPressed: if (shown(currentRow)) activated(currentRow)
    Keys.onEnterPressed: if (shown(currentRow)) activated(currentRow)
    Keys.onSpacePressed: if (shown(currentRow)) activated(currentRow)
    Keys.onPressed: {
        var page = Math.max(1, Math.floor(height / rowHeight) - 1)
        var targets = {}
        targets[Qt.Key_PageUp] = currentRow - page
        targets[Qt.Key_PageDown] = currentRow + page
        targets[Qt.Key_Home] = 0
        targets[Qt.Key_End] = count - 1
        if (targets[event.key] !== undefined) {
            goTo(targets[event.key])
            event.accepted = true
        }
    }

    Binding {
        target: list.rows
        property: "size"
        value: Math.ceil(list.height / list.rowHeight) + 1
    }
    Binding {
        target: list.rows
        property: "first"
        value: Math.floor(list.position / list.rowHeight)
    }

    Connections {
        target: list.rows

        // What is looked at stays where it is. At the beginning, with nothing chosen, it is the newest that is looked at.
        function onInserted(row, added) {
            var isBefore = row * list.rowHeight < list.position || (row === 0 && list.currentRow >= 0)
            if (list.currentRow >= row) {
                list.currentRow += added
            }
            if (isBefore) {
                list.arrivals += added
                var to = list.position + added * list.rowHeight
                if (list.base > 0) {
                    list.base += added * list.rowHeight // a flick goes on
                    list.position = to
                } else {
                    list.scrollTo(to)
                }
                if (list.isAtBeginning) {
                    list.arrivals = 0 // there is room for all, and they are seen
                }
            }
        }

        function onRestarted() {
            list.currentRow = -1
            list.scrollTo(0)
        }
    }

    Repeater {
        model: list.rows

        Loader {
            readonly property int row: model.sourceRow
            readonly property var cells: model.cells || []
            readonly property string note: model.note || ""
            readonly property bool isCurrent: row === list.currentRow && row >= 0

            height: list.rowHeight
            sourceComponent: list.delegate
            visible: row >= 0
            width: list.width - bar.width
            y: row * list.rowHeight - list.position
        }
    }

    Flickable {
        id: flickable

        anchors.fill: parent
        anchors.rightMargin: bar.width
        boundsBehavior: Flickable.StopAtBounds
        contentHeight: Math.max(height, list.reach)
        contentWidth: width
        flickDeceleration: 3000
        maximumFlickVelocity: 12000

        onContentYChanged: {
            if (!list.isPlacing) {
                list.position = list.base + contentY
            }
        }
        onMovementEnded: list.scrollTo(list.position)

        MouseArea {
            height: flickable.height
            width: flickable.width
            y: flickable.contentY

            onClicked: {
                var row = Math.floor((list.position + mouse.y) / list.rowHeight)
                list.forceActiveFocus(Qt.MouseFocusReason)
                if (list.shown(row)) {
                    list.currentRow = row
                    list.activated(row)
                }
            }
        }
    }

    UiScrollBar {
        id: bar

        anchors.right: parent.right
        height: parent.height
        objectName: list.objectName + ".idBar"
        orientation: Qt.Vertical
        policy: size < 1 ? 0x2 : 0x0 // always there when there is something to scroll
        size: list.fullHeight > 0 ? Math.min(1, list.height / list.fullHeight) : 1
        visible: size < 1
        width: visible ? Math.round(0.5 * Style.touchSize) : 0

        onPositionChanged: {
            if (pressed) {
                list.scrollTo(position * list.fullHeight)
            }
        }
        onPressedChanged: list.placeBar()
    }

    UiFocusRing {
        anchors.margins: 0
        control: list
        radius: 0
        visible: list.activeFocus
    }
}
