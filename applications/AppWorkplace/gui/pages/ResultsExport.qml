import QtQuick 2.15
import "../widgets"

// Writes what the filters let through into a file.
UiCard {
    id: panel

    property var exporter: null

    readonly property bool isRunning: exporter ? exporter.isRunning : false

    signal closed()

    function giveEnding(ending) {
        file.text = /\.(csv|jsonl)$/i.test(file.text) ? file.text.replace(/\.(csv|jsonl)$/i, "." + ending)
                                                       : exporter.freeName(ending)
    }

    title: qsTr("Export what is listed")
    Component.onCompleted: {
        file.text = exporter.freeName("csv")
        exporter.forget()
        file.forceActiveFocus()
    }

    Column {
        spacing: Style.spacing
        width: parent.width

        UiField {
            id: file

            caption: qsTr("File")
            enabled: !panel.isRunning
            objectName: panel.objectName + ".idFile"
            width: parent.width
            onAccepted: start.clicked()
            onTextEdited: panel.exporter.forget()
        }

        Row {
            spacing: Style.spacing

            Repeater {
                model: [{ ending: "csv", text: qsTr("for spreadsheets (.csv)") },
                        { ending: "jsonl", text: qsTr("for programs (.jsonl)") }]

                UiButton {
                    enabled: !panel.isRunning
                    isChosen: file.text.toLowerCase().endsWith("." + modelData.ending)
                    objectName: panel.objectName + ".idFormat." + modelData.ending
                    text: modelData.text
                    width: (file.width - Style.spacing) / 2
                    onClicked: panel.giveEnding(modelData.ending)
                }
            }
        }

        UiBusy {
            objectName: panel.objectName + ".idBusy"
            text: panel.isRunning ? qsTr("Writing … %1 %").arg(Math.floor(100 * panel.exporter.progress)) : ""
            width: parent.width
            onStopped: panel.exporter.stop()
        }

        UiProblem {
            canBeClosed: false
            cause: panel.exporter ? panel.exporter.problemCause : ""
            mend: panel.exporter ? panel.exporter.problemMend : ""
            objectName: panel.objectName + ".idProblem"
            what: panel.exporter ? panel.exporter.problemWhat : ""
            width: parent.width
        }

        UiLabel {
            objectName: panel.objectName + ".idOutcome"
            text: !panel.exporter ? "" : panel.exporter.wasStopped ? qsTr("Stopped; nothing was written.")
                                       : panel.exporter.writtenFile === "" ? ""
                                       : qsTr("Written: %1").arg(panel.exporter.writtenFile)
            visible: text !== ""
            width: parent.width
            wrapMode: Text.WrapAnywhere
        }
    }

    Row {
        anchors.bottom: parent.bottom
        anchors.right: parent.right
        spacing: Style.spacing

        UiButton {
            glyph: "icon-save"
            objectName: panel.objectName + ".idReplace"
            text: qsTr("Replace the file")
            visible: panel.exporter ? panel.exporter.wouldReplace : false
            onClicked: panel.exporter.start(file.text, true)
        }

        UiButton {
            id: start

            enabled: !panel.isRunning && file.text !== ""
            glyph: "icon-save"
            isPrimary: true
            objectName: panel.objectName + ".idStart"
            text: qsTr("Export")
            visible: panel.exporter ? !panel.exporter.wouldReplace : true
            onClicked: if (enabled) panel.exporter.start(file.text, false)
        }

        UiButton {
            glyph: "icon-close"
            objectName: panel.objectName + ".idClose"
            text: qsTr("Close")
            onClicked: panel.closed()
        }
    }
}
