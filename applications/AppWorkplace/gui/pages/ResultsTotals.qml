import QtQuick 2.15
import "../widgets"

// How many there are of what the filters let through.
Item {
    id: totals

    property var history: null

    function number(value) {
        return Number(value || 0).toLocaleString(Qt.locale(), "f", 0)
    }

    implicitHeight: 3 * Style.baseHeight

    Accessible.role: Accessible.StaticText
    Accessible.name: history ? qsTr("%1 results, %2 good, %3 not good, %4 gaps, %5 repeated").arg(
                                   number(history.good + history.notGood)).arg(number(history.good)).arg(
                                   number(history.notGood)).arg(number(history.gaps)).arg(number(history.repeats)) : ""

    Row {
        height: parent.height
        spacing: 3 * Style.baseHeight
        visible: totals.history && !totals.history.hasProblem

        UiLabel {
            font: Style.fontLabel
            height: parent.height
            text: qsTr("Results: %1").arg(totals.history ? totals.number(totals.history.good + totals.history.notGood) : "")
        }

        Repeater {
            model: [true, false]

            Row {
                height: parent.height
                spacing: 0.8 * Style.baseHeight

                UiVerdict {
                    anchors.verticalCenter: parent.verticalCenter
                    height: 2.2 * Style.baseHeight
                    isGood: modelData
                    width: height
                }

                UiLabel {
                    height: parent.height
                    text: !totals.history ? "" : modelData ? qsTr("good: %1").arg(totals.number(totals.history.good))
                                                           : qsTr("not good: %1").arg(totals.number(totals.history.notGood))
                }
            }
        }

        UiLabel {
            color: totals.history && totals.history.gaps > 0 ? Style.noticeColor : Style.textMutedColor
            height: parent.height
            text: qsTr("gaps: %1").arg(totals.history ? totals.number(totals.history.gaps) : "")
        }

        UiLabel {
            height: parent.height
            isMuted: true
            text: qsTr("repeated: %1").arg(totals.history ? totals.number(totals.history.repeats) : "")
        }
    }
}
