import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import "../widgets"

// The programs of the wrench with their presets; one touch selects.
UiCard {
    id: card

    property var device
    property bool isWorking: false

    function preset(program) {
        var parts = []
        if (!isNaN(program.target)) {
            parts.push(qsTr("%1 %2", "torque, unit").arg(Style.number(program.target, 1)).arg(program.unit))
        }
        if (program.angle !== undefined && program.angle !== "") {
            parts.push(qsTr("%1 °", "angle").arg(Style.receivedNumber(program.angle)))
        }
        return parts.join("  ·  ")
    }

    title: qsTr("Programs")

    ListView {
        id: list

        anchors.fill: parent
        anchors.margins: Style.focusWidth
        boundsBehavior: Flickable.StopAtBounds
        clip: contentHeight > height
        model: card.device ? card.device.programs : []
        spacing: 0.6 * Style.spacing

        Accessible.role: Accessible.List
        Accessible.name: card.title
        T.ScrollBar.vertical: UiScrollBar {}

        delegate: UiEntry {
            detail: card.preset(modelData)
            enabled: card.isWorking
            isChosen: card.device.program === modelData.progId
            objectName: card.objectName + "." + modelData.progId
            text: modelData.name
            width: list.width - (list.contentHeight > list.height ? 2 * Style.baseHeight : 0)
            onActiveFocusChanged: {
                if (activeFocus) {
                    list.positionViewAtIndex(index, ListView.Contain)
                }
            }
            onClicked: card.device.selectProgram(modelData.progId)
        }
    }

    UiEmpty {
        anchors.fill: parent
        hint: qsTr("They are read from the wrench when it is connected.")
        text: qsTr("No programs")
        visible: list.count === 0
    }
}
