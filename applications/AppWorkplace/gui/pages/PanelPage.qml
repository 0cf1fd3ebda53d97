import QtQuick 2.15
import Workplace 1.0
import "../widgets"

// The maintenance panel that the plugin of the current device brings; where other device plugins on its line bring one,
// too, one of them.
FocusScope {
    id: page

    property var workplace
    property var device

    readonly property bool hasDevice: page.device ? page.device.objectId !== "" : false
    readonly property var panels: page.hasDevice && page.device.panels ? page.device.panels : []
    // What the panel stands for: the device itself, or the instance of another plugin.
    readonly property var shown: page.panels.length > 1 ? page.panels[Math.max(0, choice.currentIndex)] : page.device

    objectName: "panel"

    PanelView {
        id: view

        anchors {
            fill: parent
            topMargin: choice.visible ? choice.height + 2 * Style.spacing : 0
            bottomMargin: Style.spacing
            rightMargin: Style.baseWidth + Style.spacing // what is drawn beyond its right edge
        }
        name: !page.hasDevice ? "" : page.shown.plugin && choice.currentIndex > 0 ? page.shown.plugin : page.device.name
        objectId: page.hasDevice ? page.shown.objectId : ""
        objectName: page.objectName + ".idView"
        pluginUuid: page.hasDevice ? page.shown.pluginUuid : ""
        reference: page.hasDevice ? page.device.reference : ""
        visible: hasPanel
    }

    UiChoice {
        id: choice

        anchors {
            left: parent.left
            top: parent.top
            margins: Style.spacing
        }
        caption: qsTr("Panel of")
        model: page.panels.map(function (panel) { return panel.plugin })
        objectName: page.objectName + ".idPanels"
        visible: page.panels.length > 1
        width: 30 * Style.baseHeight
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
