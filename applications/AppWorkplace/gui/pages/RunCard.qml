import QtQuick 2.15
import Workplace 1.0
import "../widgets"

// How the last results ran, beside the target where it is known, and how many were good.
UiCard {
    id: card

    property var device

    readonly property int count: chart.model ? chart.model.count : 0

    Row {
        id: counts

        height: 2.8 * Style.baseHeight
        spacing: Style.spacing

        UiVerdict {
            anchors.verticalCenter: parent.verticalCenter
            isGood: true
        }

        UiLabel {
            anchors.verticalCenter: parent.verticalCenter
            font: Style.fontLabel
            text: qsTr("%1 good").arg(card.device ? card.device.good : 0)
        }

        Item {
            height: 1
            width: Style.spacing
        }

        UiVerdict {
            anchors.verticalCenter: parent.verticalCenter
            isGood: false
        }

        UiLabel {
            anchors.verticalCenter: parent.verticalCenter
            font: Style.fontLabel
            text: qsTr("%1 not good").arg(card.device ? card.device.notGood : 0)
        }
    }

    UiLabel {
        anchors {
            left: counts.right
            leftMargin: 2 * Style.spacing
            right: parent.right
            verticalCenter: counts.verticalCenter
        }
        color: Style.accentColor
        horizontalAlignment: Text.AlignRight
        text: card.device && card.device.hasTarget ? qsTr("target %1").arg(Style.number(card.device.target, 2)) : ""
    }

    UiLabel {
        id: notes

        anchors {
            left: parent.left
            right: parent.right
            bottom: parent.bottom
        }
        color: Style.noticeColor
        height: visible ? implicitHeight : 0
        text: card.device ? card.device.notes : ""
        visible: text !== ""
    }

    RunChart {
        id: chart

        anchors {
            left: parent.left
            right: parent.right
            top: counts.bottom
            topMargin: 0.5 * Style.spacing
            bottom: notes.top
        }
        badColor: Style.badColor
        capacity: card.count <= 20 ? 20 : 60
        font: Style.fontCaption
        goodColor: Style.goodColor
        hasTarget: card.device ? card.device.hasTarget : false
        lineColor: Style.frameColor
        localeName: Style.localeName
        model: card.device ? card.device.recent : null
        objectName: "work.idChart"
        target: card.device && card.device.hasTarget ? card.device.target : 0
        targetColor: Style.accentColor
        textColor: Style.textMutedColor
        visible: card.count > 0

        Accessible.role: Accessible.Chart
        Accessible.name: qsTr("Run chart of the last %1 results").arg(card.count)
    }

    UiEmpty {
        anchors.fill: chart
        text: ""
        hint: qsTr("The last results are drawn here, as they come.")
        visible: card.count === 0
    }
}
