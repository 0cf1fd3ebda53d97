import QtQuick 2.15
import "../widgets"

// Whether the wrench may tighten, and the two buttons that say so.
UiCard {
    id: card

    property var device
    property bool isWorking: false

    readonly property bool isKnown: device ? device.isLockKnown : false
    readonly property bool isLocked: isKnown && device.isLocked

    contentHeight: 2 * Style.touchSize + buttons.spacing + 3.4 * Style.baseHeight

    UiLabel {
        id: said

        font: Style.fontLabel
        height: 2.6 * Style.baseHeight
        objectName: card.objectName + ".idSaid"
        text: !card.isKnown ? qsTr("Lock: not known") : card.isLocked ? qsTr("Locked") : qsTr("Unlocked")
        width: parent.width
    }

    Column {
        id: buttons

        anchors {
            left: parent.left
            right: parent.right
            bottom: parent.bottom
        }
        spacing: 0.6 * Style.spacing

        UiButton {
            enabled: card.isWorking
            glyph: "icon-lock"
            isChosen: card.isKnown && card.isLocked
            objectName: card.objectName + ".idLock"
            text: qsTr("Lock")
            width: buttons.width
            onClicked: card.device.setLock(true)
        }

        UiButton {
            enabled: card.isWorking
            glyph: "icon-unlock"
            isChosen: card.isKnown && !card.isLocked
            objectName: card.objectName + ".idUnlock"
            text: qsTr("Unlock")
            width: buttons.width
            onClicked: card.device.setLock(false)
        }
    }
}
