import QtQuick 2.15
import QtQuick.Controls 2.15
import PlgLibDeviceHaitor 1.0
import "../../../applications/AppWorkplace/gui/panels"
import "../../../applications/AppWorkplace/gui/widgets"

// The host puts the device's own values in the place of the texts in braces before it loads this document.
BasePanelMaintenance {
    id: rootItem

    objectName: "maintenance_panel_device_haitor"
    name: be.name
    connected: be.isConnected

    onUpdateData: be.updateChannelsValue()

    BeMaintenanceDeviceHaitor {
        id: be

        name: "{OBJECT_NAME}"
        objectId: "{OBJECT_ID}"
        reference: "{OBJECT_REFERENCE}"
    }

    contentItem: Column {
        id: idColumn

        objectName: rootItem.objectName + ".idColumn"
        width: rootItem.width - 3 * Style.baseWidth
        spacing: rootItem.spacing

        Text {
            id: idTitleCommand

            objectName: idColumn.objectName + ".idTitleCommand"
            font: Style.fontLabel
            //% "Controller commands"
            text: qsTrId("maintenance_panel_Controller_commands")
        }

        Column {
            id: idRowCommandMain

            objectName: idColumn.objectName + ".idRowCommandMain"
            width: parent.width
            spacing: 4 * Style.baseHeight

            Row {
                id: idRowSetProgram

                objectName: idRowCommandMain.objectName + ".idRowSetProgram"
                y: idRowCommandMain.spacing
                width: parent.width
                height: 10 * Style.baseHeight
                spacing: Style.baseWidth

                Item {
                    id: idIndicatorSetProgram

                    objectName: idRowSetProgram.objectName + ".idIndicatorSetProgram"
                    width: height
                    height: parent.height / 2

                    UiGlyph {
                        id: idIndicatorSetProgramGlyph

                        objectName: idIndicatorSetProgram.objectName + ".idIndicatorSetProgramGlyph"
                        anchors.fill: parent
                        anchors.margins: Style.baseHeight
                        name: "icon-uploadsettings"
                    }
                }

                Item {
                    id: idInformationSetProgram

                    objectName: idRowSetProgram.objectName + ".idInformationSetProgram"
                    width: idRowCommandMain.width / 2
                    height: parent.height / 2

                    Text {
                        anchors.fill: parent
                        font.bold: true
                        fontSizeMode: Text.Fit
                        verticalAlignment: Text.AlignVCenter
                        //% "Set program"
                        text: qsTrId("maintenance_panel_Set_program")
                    }
                }

                Column {
                    id: idValueRectangleSetProgram

                    objectName: idRowSetProgram.objectName + ".idValueRectangleSetProgram"
                    // The glyph's width, not the indicator's: so the host's other panels line up.
                    width: parent.width - idIndicatorSetProgramGlyph.width - idInformationSetProgram.width
                           - 2 * idRowSetProgram.spacing
                    height: parent.height
                    spacing: idRowSetProgram.spacing

                    Rectangle {
                        width: parent.width
                        height: parent.height / 2
                        color: "transparent"
                        border.width: Style.baseHeight / 6
                        border.color: Style.widgetDisabledBorderColor

                        TextInput {
                            id: idValueSetProgram

                            objectName: idValueRectangleSetProgram.objectName + ".idValue"
                            anchors.fill: parent
                            horizontalAlignment: TextInput.AlignHCenter
                            verticalAlignment: TextInput.AlignVCenter
                            validator: IntValidator {
                                bottom: 1
                            }
                        }
                    }

                    Button {
                        id: idButtonSetProgram

                        width: parent.width
                        height: parent.height / 2
                        //% "Apply"
                        text: qsTrId("maintenance_panel_Apply")
                        onClicked: be.setProgram(idValueSetProgram.text)
                    }
                }
            }

            Row {
                id: idRowSetLock

                objectName: idRowCommandMain.objectName + ".idRow"
                width: parent.width
                height: 5 * Style.baseHeight
                spacing: Style.baseWidth

                Item {
                    id: idIndicatorSetLock

                    objectName: idRowSetLock.objectName + ".idIndicator"
                    width: height
                    height: parent.height

                    UiGlyph {
                        id: idSetLockInput

                        objectName: idIndicatorSetLock.objectName + ".idSetLockInput"
                        anchors.fill: parent
                        anchors.margins: Style.baseHeight
                        name: "icon-uploadsettings"
                    }
                }

                Item {
                    id: idInformationSetLock

                    objectName: idRowSetLock.objectName + ".idInformation"
                    width: 3 * idRowCommandMain.width / 10
                    height: parent.height

                    Text {
                        id: idChannelIdSetLock

                        objectName: idInformationSetLock.objectName + ".idChannelName"
                        width: parent.width
                        height: parent.height / 2
                        font.bold: true
                        fontSizeMode: Text.Fit
                        verticalAlignment: Text.AlignVCenter
                        //% "Set lock"
                        text: qsTrId("maintenance_panel_Set_lock")
                    }
                }

                Row {
                    id: idValueRectangleSetLock

                    objectName: idRowSetLock.objectName + ".idValueRectangle"
                    width: parent.width - idSetLockInput.width - idInformationSetLock.width - 2 * idRowSetLock.spacing
                    height: parent.height
                    spacing: 5
                    clip: true

                    Button {
                        id: idButtonSetLock

                        width: parent.width / 2
                        height: parent.height
                        //% "Lock"
                        text: qsTrId("maintenance_panel_Lock")
                        onClicked: be.setLock(true)
                    }

                    Button {
                        id: idButtonSetLock2

                        width: parent.width / 2
                        height: parent.height
                        //% "Unlock"
                        text: qsTrId("maintenance_panel_Unlock")
                        onClicked: be.setLock(false)
                    }
                }
            }
        }
    }
}
