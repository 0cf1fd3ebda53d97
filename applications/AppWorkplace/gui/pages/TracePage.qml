import QtQuick 2.15
import "../widgets"

// What is said on the line of the current device, while it is said.
FocusScope {
    id: page

    property var workplace
    property var device

    readonly property var trace: page.device ? page.device.trace : null
    readonly property bool isPaused: trace !== null && trace.isPaused

    function switchOn() {
        if (trace !== null && visible) {
            trace.isOn = true // it stays on: who comes back sees what went on meanwhile
        }
    }

    objectName: "trace"
    onTraceChanged: switchOn()
    onVisibleChanged: switchOn()

    Flow {
        id: tools

        anchors {
            left: parent.left
            right: parent.right
            top: parent.top
            margins: Style.spacing
        }
        spacing: 0.6 * Style.spacing

        Row {
            id: buttons

            spacing: tools.spacing

            UiButton {
                description: page.isPaused ? qsTr("Go on: show what has come meanwhile")
                                           : qsTr("Pause: leave the rows as they are")
                glyph: page.isPaused ? "icon-start" : "icon-pause"
                isPrimary: page.isPaused
                objectName: page.objectName + ".idPause"
                text: page.isPaused ? qsTr("Go on") : qsTr("Pause")
                onClicked: page.trace.isPaused = !page.trace.isPaused
            }

            UiButton {
                description: qsTr("Clear: forget what is kept")
                glyph: "icon-close"
                objectName: page.objectName + ".idClear"
                text: qsTr("Clear")
                onClicked: page.trace.clear()
            }

            TraceToggle {
                direction: "sent"
                isChosen: page.trace !== null && page.trace.showsSent
                objectName: page.objectName + ".idSent"
                onClicked: page.trace.showsSent = !page.trace.showsSent
            }

            TraceToggle {
                direction: "arrived"
                isChosen: page.trace !== null && page.trace.showsArrived
                objectName: page.objectName + ".idArrived"
                onClicked: page.trace.showsArrived = !page.trace.showsArrived
            }

            TraceToggle {
                direction: "remark"
                isChosen: page.trace !== null && page.trace.showsRemarks
                objectName: page.objectName + ".idRemarks"
                onClicked: page.trace.showsRemarks = !page.trace.showsRemarks
            }
        }

        UiField {
            readonly property real room: tools.width - buttons.width - tools.spacing

            caption: qsTr("Only with this text")
            objectName: page.objectName + ".idFilter"
            text: page.trace !== null ? page.trace.filterText : ""
            // Beside the buttons, or a row of its own.
            width: room >= 18 * Style.baseHeight ? Math.min(40 * Style.baseHeight, room) : tools.width
            onTextEdited: page.trace.filterText = text
        }
    }

    TraceList {
        id: list

        anchors {
            left: parent.left
            right: parent.right
            top: tools.bottom
            bottom: problem.visible ? problem.top : saving.top
            margins: Style.spacing
        }
        emptyHint: page.trace === null || page.trace.kept > 0
                   ? qsTr("What there is does not pass the filter.")
                   : page.trace.isHearing ? qsTr("It comes as soon as something is said.")
                                          : qsTr("The line is not in use: scan or connect, and it is heard from then on.")
        model: page.trace
        objectName: page.objectName + ".idList"
    }

    UiProblem {
        id: problem

        anchors {
            left: parent.left
            right: parent.right
            bottom: saving.top
            margins: Style.spacing
        }
        cause: page.trace !== null ? page.trace.problemCause : ""
        mend: page.trace !== null ? page.trace.problemMend : ""
        objectName: page.objectName + ".idProblem"
        what: page.trace !== null ? page.trace.problemWhat : ""
        onClosed: page.trace.forgetProblem()
    }

    Item {
        id: saving

        anchors {
            left: parent.left
            right: parent.right
            bottom: parent.bottom
            margins: Style.spacing
        }
        height: Style.touchSize

        Column {
            anchors {
                left: parent.left
                right: file.left
                rightMargin: Style.spacing
                verticalCenter: parent.verticalCenter
            }

            UiLabel {
                Accessible.role: Accessible.StatusBar
                Accessible.name: text
                objectName: page.objectName + ".idCounts"
                text: page.trace === null ? ""
                      : (page.isPaused ? qsTr("%1 of %2 entries, %3 wait").arg(page.trace.shown).arg(page.trace.kept)
                                         .arg(page.trace.waiting)
                                       : qsTr("%1 of %2 entries").arg(page.trace.shown).arg(page.trace.kept))
                width: parent.width
            }

            UiLabel {
                color: Style.noticeColor
                font: Style.fontCaption
                objectName: page.objectName + ".idDropped"
                text: page.trace === null ? "" : qsTr("%1 were too many and are gone").arg(page.trace.dropped)
                visible: page.trace !== null && page.trace.dropped > 0
                width: parent.width
            }

            UiLabel {
                elide: Text.ElideMiddle
                font: Style.fontCaption
                isMuted: true
                objectName: page.objectName + ".idSaved"
                text: page.trace === null ? "" : qsTr("Saved: %1").arg(page.trace.savedFile)
                visible: page.trace !== null && page.trace.savedFile !== ""
                width: parent.width
            }
        }

        UiField {
            id: file

            anchors {
                right: save.left
                rightMargin: 0.6 * Style.spacing
            }
            caption: qsTr("File")
            objectName: page.objectName + ".idFile"
            placeholderText: qsTr("named by the time")
            width: Math.min(40 * Style.baseHeight, 0.4 * parent.width)
            onAccepted: save.clicked()
        }

        UiButton {
            id: save

            anchors.right: parent.right
            description: qsTr("Save what is kept as a trace that can be played back")
            enabled: page.trace !== null && page.trace.kept > 0
            glyph: "icon-save"
            objectName: page.objectName + ".idSave"
            text: qsTr("Save")
            onClicked: {
                if (page.trace.save(file.text !== "" ? file.text : page.trace.suggestedFile())) {
                    file.clear()
                }
            }
        }
    }
}
