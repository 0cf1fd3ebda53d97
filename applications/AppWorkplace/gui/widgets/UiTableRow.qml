import QtQuick 2.15

// One row of a table. `columns`: as of its header. `cells`: a text for each; an entry true or false is shown as a verdict.
Rectangle {
    id: row

    property var columns: []
    property var cells: []
    // Every other row is a little darker, so that the eye keeps its line.
    property bool isOdd: false
    property bool isSelected: false
    property color textColor: isSelected ? Style.accentTextColor : Style.textColor

    Accessible.role: Accessible.Row
    Accessible.name: cells.filter(function (cell) { return typeof cell === "string" }).join(", ")

    color: isSelected ? Style.accentColor : isOdd ? Style.stripeColor : Style.surfaceColor
    implicitHeight: 3.4 * Style.baseHeight

    Row {
        anchors.fill: parent

        Repeater {
            model: row.columns

            Item {
                readonly property var cell: row.cells[index]

                height: row.height
                width: row.width * modelData.width / Style.sumOfWidths(row.columns)

                UiLabel {
                    anchors.fill: parent
                    color: row.textColor
                    horizontalAlignment: modelData.isRight ? Text.AlignRight : Text.AlignLeft
                    leftPadding: Style.baseHeight
                    rightPadding: Style.baseHeight
                    text: cell === undefined || typeof cell === "boolean" ? "" : cell
                    visible: typeof cell !== "boolean"
                }

                Loader {
                    active: typeof cell === "boolean"
                    anchors.verticalCenter: parent.verticalCenter
                    x: Style.baseHeight
                    sourceComponent: UiVerdict {
                        isGood: cell === true
                        height: 2.2 * Style.baseHeight
                        width: height
                    }
                }
            }
        }
    }
}
