import QtQuick 2.15
import "../widgets"

// One stage of the examination: what it checks and sends, and what has come of it; told by shape and word as well as by
// colour.
Rectangle {
    id: row

    // The roles of DoctorTable.
    property var stage
    readonly property string outcome: stage.outcome
    readonly property bool isFailed: outcome === "failed"
    readonly property bool isDecided: isFailed || outcome === "passed"

    Accessible.role: Accessible.ListItem
    Accessible.name: [stage.name, stage.outcomeText, stage.checks, stage.finding, stage.cause, stage.mend]
                     .filter(function (text) { return text !== "" }).join("\n")

    border.color: isFailed ? Style.badColor : outcome === "running" ? Style.accentColor : Style.frameColor
    border.width: isFailed || outcome === "running" ? 2 * Style.lineWidth : Style.lineWidth
    color: Style.surfaceColor
    height: Math.max(name.height, texts.height) + 1.4 * Style.spacing
    radius: Style.radius

    Item {
        id: mark

        x: Style.spacing
        y: 0.7 * Style.spacing
        height: 3 * Style.baseHeight
        width: height

        UiVerdict {
            anchors.fill: parent
            isGood: row.outcome === "passed"
            visible: row.isDecided
        }

        // A ring for what is to come, a bar for what is left out.
        Rectangle {
            anchors.centerIn: parent
            border.color: Style.textMutedColor
            border.width: Math.max(2, 0.25 * Style.baseHeight)
            color: "transparent"
            height: row.outcome === "waiting" ? 0.8 * parent.height : border.width
            radius: height / 2
            visible: row.outcome === "waiting" || row.outcome === "skipped"
            width: 0.8 * parent.width
        }

        UiGlyph {
            anchors.fill: parent
            color: Style.accentColor
            name: "icon-busy"
            visible: row.outcome === "running"
        }
    }

    Column {
        id: name

        x: mark.x + mark.width + Style.spacing
        y: 0.7 * Style.spacing
        width: 15 * Style.baseHeight

        UiLabel {
            font { bold: true; pixelSize: Style.fontText.pixelSize }
            text: row.stage.name
            width: parent.width
        }

        UiLabel {
            color: row.isFailed ? Style.badColor : row.outcome === "passed" ? Style.goodColor : Style.textMutedColor
            text: row.isDecided ? qsTr("%1 (%2 s)").arg(row.stage.outcomeText)
                                  .arg(Number(row.stage.seconds).toLocaleString(Qt.locale(), "f", 1))
                                : row.stage.outcomeText
            width: parent.width
        }
    }

    Column {
        id: texts

        anchors {
            left: name.right
            leftMargin: Style.spacing
            right: parent.right
            rightMargin: Style.spacing
        }
        y: 0.7 * Style.spacing
        spacing: 0.2 * Style.spacing

        UiLabel {
            isMuted: true
            text: row.stage.checks
            width: parent.width
            wrapMode: Text.Wrap
        }

        UiLabel {
            isMuted: true
            text: qsTr("Sends: %1").arg(row.stage.sends)
            visible: row.stage.sends !== ""
            width: parent.width
            wrapMode: Text.Wrap
        }

        UiLabel {
            color: Style.noticeColor
            text: row.stage.notes
            visible: text !== ""
            width: parent.width
            wrapMode: Text.Wrap
        }

        UiLabel {
            color: row.isFailed ? Style.badColor : Style.textColor
            font { bold: row.isFailed; pixelSize: Style.fontText.pixelSize }
            text: row.stage.finding
            visible: text !== ""
            width: parent.width
            wrapMode: Text.Wrap
        }

        UiLabel {
            text: row.stage.cause
            visible: text !== ""
            width: parent.width
            wrapMode: Text.Wrap
        }

        UiLabel {
            text: qsTr("What to do: %1").arg(row.stage.mend)
            visible: row.stage.mend !== ""
            width: parent.width
            wrapMode: Text.Wrap
        }
    }
}
