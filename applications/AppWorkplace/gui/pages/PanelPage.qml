import QtQuick 2.15
import Workplace 1.0
import "../widgets"

// The maintenance panel that the plugin of the current device brings.
FocusScope {
    id: page

    property var workplace
    property var device

    readonly property bool hasDevice: page.device ? page.device.objectId !== "" : false

    objectName: "panel"

    PanelView {
        id: view

        anchors {
            fill: parent
            bottomMargin: Style.spacing
            rightMargin: Style.baseWidth + Style.spacing // what is drawn beyond its right edge
        }
        name: page.hasDevice ? page.device.name : ""
        objectId: page.hasDevice ? page.device.objectId : ""
        objectName: page.objectName + ".idView"
        pluginUuid: page.hasDevice ? page.device.pluginUuid : ""
        reference: page.hasDevice ? page.device.reference : ""
        visible: hasPanel
    }

    UiProblem {
        anchors {
            left: parent.left
            right: parent.right
            top: parent.top
            margins: Style.spacing
        }
        canBeClosed: false
        cause: view.problemCause
        mend: view.problemMend
        objectName: page.objectName + ".idProblem"
        what: view.problemWhat
    }

    Column {
        anchors.centerIn: parent
        spacing: 2 * Style.spacing
        visible: !page.hasDevice
        width: parent.width - 4 * Style.spacing

        UiEmpty {
            glyph: "icon-panel"
            height: Math.max(implicitHeight, 24 * Style.baseHeight)
            hint: qsTr("It comes with the first scan or connection, which loads the plugin and opens the line.")
            objectName: page.objectName + ".idEmpty"
            text: qsTr("The maintenance panel is not there yet")
            width: parent.width
        }

        UiButton {
            anchors.horizontalCenter: parent.horizontalCenter
            glyph: "icon-connect"
            isPrimary: true
            objectName: page.objectName + ".idConnect"
            text: qsTr("Connect a wrench")
            onClicked: page.workplace.page = "connect"
        }
    }
}
