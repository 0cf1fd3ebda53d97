import QtQuick 2.15
import "../widgets"

// One row of the stored results. A gap or a repeat has a note, which takes the place of what it has not.
UiTableRow {
    id: row

    property string note

    Accessible.name: note === "" ? cells.filter(function (cell) { return typeof cell === "string" }).join(", ")
                                 : cells[0] + ", " + note
    Accessible.role: Accessible.Row

    Rectangle {
        readonly property real from: row.columns.length > 4 ? 35 / Style.sumOfWidths(row.columns) : 0

        anchors {
            left: parent.left
            leftMargin: from * parent.width
            right: parent.right
            top: parent.top
            bottom: parent.bottom
        }
        color: row.color
        visible: row.note !== ""

        UiGlyph {
            id: mark

            anchors.verticalCenter: parent.verticalCenter
            x: Style.baseHeight
            color: row.isSelected ? row.textColor : Style.noticeColor
            height: 2.2 * Style.baseHeight
            name: parent.visible ? "icon-warning" : ""
            width: height
        }

        UiLabel {
            anchors {
                left: mark.right
                leftMargin: Style.baseHeight
                right: parent.right
                rightMargin: Style.baseHeight
                top: parent.top
                bottom: parent.bottom
            }
            color: row.isSelected ? row.textColor : Style.noticeColor
            maximumLineCount: 2
            text: row.note
            wrapMode: Text.Wrap
        }
    }
}
