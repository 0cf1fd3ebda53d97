import QtQuick 2.15
import "../widgets"

// The stored results: filters, the table, what one row holds, and the export.
FocusScope {
    id: page

    property var workplace: null
    property var device: null

    readonly property var history: workplace ? workplace.history : null
    readonly property bool hasPanel: panel.sourceComponent !== null

    // Of a row of the table; the last two are the verdict, as a sign and as a word.
    readonly property var allColumns: [
        { title: qsTr("time"), width: 25 },
        { title: qsTr("wrench"), width: 10 },
        { title: qsTr("program"), width: 12, isRight: true },
        { title: qsTr("torque"), width: 13, isRight: true },
        { title: qsTr("direction"), width: 11, isRight: true },
        { title: qsTr("angle (°)"), width: 11, isRight: true },
        { title: qsTr("reading"), width: 11, isRight: true },
        { title: qsTr("status"), width: 9 },
        { title: "", width: 4 },
        { title: qsTr("verdict"), width: 12 }
    ]
    // As many of them as there is room for.
    readonly property var shownCells: hasPanel ? [0, 3, 8, 9]
                                               : width < 98 * Style.baseHeight ? [0, 1, 2, 3, 5, 6, 8, 9]
                                                                               : allColumns.map(function (_, i) { return i })
    readonly property var columns: shownCells.map(function (each) { return allColumns[each] })

    function shown(cells) {
        return cells.length > 2 ? shownCells.map(function (each) { return cells[each] }) : cells
    }

    function openDetails(row) {
        table.currentRow = row
        panel.sourceComponent = details
    }

    function closePanel() {
        panel.sourceComponent = null
        table.forceActiveFocus()
    }

    Binding {
        target: page.history
        property: "isShown"
        value: page.visible
    }

    ResultsFilters {
        id: filters

        anchors {
            left: parent.left
            right: parent.right
            top: parent.top
            margins: Style.spacing
        }
        history: page.history
        objectName: "results.idFilters"
        onExportWanted: panel.sourceComponent = exporting
    }

    ResultsTotals {
        id: totals

        anchors {
            left: filters.left
            right: filters.right
            top: filters.bottom
            topMargin: Style.spacing
        }
        history: page.history
        objectName: "results.idTotals"
    }

    UiProblem {
        id: problem

        anchors {
            left: filters.left
            right: filters.right
            top: totals.bottom
            topMargin: Style.spacing
        }
        canBeClosed: false
        cause: page.history ? page.history.problemCause : ""
        mend: page.history ? page.history.problemMend : ""
        objectName: "results.idProblem"
        what: page.history ? page.history.problemWhat : ""
    }

    Rectangle {
        id: frame

        anchors {
            left: filters.left
            right: panel.left
            rightMargin: page.hasPanel ? Style.spacing : 0
            top: problem.visible ? problem.bottom : totals.bottom
            topMargin: Style.spacing
            bottom: parent.bottom
            bottomMargin: Style.spacing
        }
        border.color: Style.frameColor
        border.width: Style.lineWidth
        color: Style.surfaceColor

        Rectangle {
            anchors {
                left: parent.left
                right: parent.right
                top: parent.top
                margins: Style.lineWidth
            }
            color: header.color
            height: header.height
        }

        UiTableHeader {
            id: header

            anchors {
                left: parent.left
                top: parent.top
                margins: Style.lineWidth
            }
            columns: page.columns
            width: table.rowWidth
        }

        UiLongList {
            id: table

            readonly property real rowWidth: width - (fullHeight > height ? Math.round(0.5 * Style.touchSize) : 0)

            anchors {
                fill: parent
                margins: Style.lineWidth
                topMargin: header.height + Style.lineWidth
            }
            description: qsTr("Results")
            focus: true
            objectName: "results.idTable"
            rows: page.history ? page.history.visibleRows : null

            delegate: ResultRow {
                cells: page.shown(parent.cells)
                columns: page.columns
                isOdd: parent.row % 2 === 1
                isSelected: parent.isCurrent
                note: parent.note
                objectName: "results.idTable." + parent.row
            }

            onActivated: page.openDetails(row)
            Keys.onEscapePressed: page.closePanel()
        }

        UiEmpty {
            anchors.fill: table
            glyph: "icon-results"
            hint: !page.history ? ""
                                : page.history.isFiltered ? qsTr("Let more through with the filters above.")
                                                          : qsTr("Each result of a session is stored in %1.").arg(
                                                                page.history.file)
            text: page.history && page.history.isFiltered && page.history.isThere ? qsTr("No stored result is like that.")
                                                                                  : qsTr("Nothing is stored yet.")
            visible: page.history && page.history.count === 0 && !page.history.isReading && !page.history.hasProblem
        }

        UiLabel {
            anchors.centerIn: table
            isMuted: true
            text: qsTr("The list is being made …")
            visible: page.history && page.history.isReading && page.history.count === 0
        }

        UiButton {
            anchors {
                horizontalCenter: table.horizontalCenter
                top: table.top
                topMargin: Style.spacing
            }
            isPrimary: true
            objectName: "results.idToNewest"
            text: qsTr("%1 new").arg(table.arrivals)
            visible: table.arrivals > 0
            onClicked: {
                table.currentRow = -1
                table.scrollTo(0)
                table.arrivals = 0
            }
        }
    }

    Loader {
        id: panel

        anchors {
            right: filters.right
            top: frame.top
            bottom: frame.bottom
        }
        width: page.hasPanel ? Math.min(48 * Style.baseHeight, 0.5 * page.width) : 0
    }

    Component {
        id: details

        ResultDetails {
            history: page.history
            objectName: "results.idDetails"
            row: table.currentRow
            onClosed: page.closePanel()
        }
    }

    Component {
        id: exporting

        ResultsExport {
            exporter: page.history.exporter
            objectName: "results.idExport"
            onClosed: page.closePanel()
        }
    }
}
