import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import "../widgets"

// Looks at the workplace of the current device stage by stage, and says how to mend what fails.
FocusScope {
    id: page

    property var workplace
    property var device

    readonly property var doctor: page.workplace ? page.workplace.doctor : null
    readonly property bool isRunning: doctor !== null && doctor.isRunning
    // It needs the port for itself.
    readonly property bool isLineInUse: page.device ? page.device.state !== 0 : false
    readonly property var waits: [0, 30, 60, 120]

    function prepare() {
        if (doctor !== null && visible && !isRunning && !doctor.hasResult) {
            doctor.prepare()
        }
    }

    objectName: "doctor"
    onDoctorChanged: prepare()
    onVisibleChanged: prepare()

    Flow {
        id: tools

        anchors {
            left: parent.left
            right: parent.right
            top: parent.top
            margins: Style.spacing
        }
        spacing: 0.6 * Style.spacing
        visible: !page.isRunning

        UiButton {
            description: qsTr("Examine the workplace of %1").arg(page.device ? page.device.name : "")
            enabled: page.doctor !== null && page.device && !page.isLineInUse
            glyph: "icon-start"
            isPrimary: true
            objectName: page.objectName + ".idStart"
            text: qsTr("Examine")
            onClicked: {
                page.device.freeLine()
                page.doctor.start(page.waits[wait.currentIndex])
            }
        }

        UiChoice {
            id: wait

            caption: qsTr("Ask for a tightening")
            model: page.waits.map(function (seconds) {
                return seconds === 0 ? qsTr("no") : qsTr("and wait %1 s for it").arg(seconds)
            })
            objectName: page.objectName + ".idWait"
            width: 26 * Style.baseHeight
        }
    }

    UiBusy {
        id: busy

        anchors.fill: tools
        canBeStopped: page.doctor !== null && !page.doctor.isEnding
        objectName: page.objectName + ".idBusy"
        text: page.doctor !== null ? page.doctor.runningText : ""
        onStopped: page.doctor.stop()
    }

    Column {
        id: notices

        anchors {
            left: parent.left
            right: parent.right
            top: tools.bottom
            margins: Style.spacing
        }
        spacing: Style.spacing

        Rectangle {
            border.color: Style.noticeColor
            border.width: 2 * Style.lineWidth
            color: Style.surfaceColor
            height: Style.touchSize + 2 * Style.spacing
            radius: Style.radius
            visible: page.isLineInUse && !page.isRunning
            width: parent.width

            Accessible.role: Accessible.AlertMessage
            Accessible.name: inUse.text

            UiLabel {
                id: inUse

                anchors {
                    left: parent.left
                    leftMargin: Style.spacing
                    right: release.left
                    rightMargin: Style.spacing
                    verticalCenter: parent.verticalCenter
                }
                maximumLineCount: 3
                text: page.device ? qsTr("The line of %1 is in use (%2), and the doctor needs it for itself.")
                                    .arg(page.device.name).arg(page.device.stateText) : ""
                wrapMode: Text.Wrap
            }

            UiButton {
                id: release

                anchors {
                    right: parent.right
                    rightMargin: Style.spacing
                    verticalCenter: parent.verticalCenter
                }
                description: qsTr("Stop what uses the line")
                enabled: page.device ? page.device.state !== 5 : false // not while it is ending
                glyph: "icon-stop"
                objectName: page.objectName + ".idRelease"
                text: qsTr("Stop it")
                onClicked: page.device.stop()
            }
        }

        UiProblem {
            canBeClosed: false
            cause: page.doctor !== null ? page.doctor.problemCause : ""
            mend: page.doctor !== null ? page.doctor.problemMend : ""
            objectName: page.objectName + ".idProblem"
            what: page.doctor !== null ? page.doctor.problemWhat : ""
            width: parent.width
        }

        Row {
            height: visible ? 5 * Style.baseHeight : 0
            spacing: Style.spacing
            visible: page.doctor !== null && page.doctor.hasResult

            UiVerdict {
                anchors.verticalCenter: parent.verticalCenter
                height: 4 * Style.baseHeight
                isGood: page.doctor !== null && page.doctor.isGood
                width: height
            }

            Column {
                anchors.verticalCenter: parent.verticalCenter

                UiLabel {
                    Accessible.role: Accessible.AlertMessage
                    Accessible.name: text
                    font: Style.fontLabel
                    objectName: page.objectName + ".idResult"
                    text: page.doctor !== null ? page.doctor.resultText : ""
                }

                UiLabel {
                    isMuted: true
                    text: page.doctor !== null ? page.doctor.endText : ""
                    visible: text !== ""
                }
            }
        }
    }

    ListView {
        id: list

        anchors {
            left: parent.left
            right: parent.right
            top: notices.bottom
            topMargin: notices.height > 0 ? Style.spacing : 0
            bottom: parent.bottom
            leftMargin: Style.spacing
            rightMargin: Style.spacing
            bottomMargin: Style.spacing
        }
        activeFocusOnTab: true
        boundsBehavior: Flickable.StopAtBounds
        cacheBuffer: 100 * Style.touchSize // they are few
        clip: true
        highlightMoveDuration: 0
        keyNavigationEnabled: true
        model: page.doctor
        objectName: page.objectName + ".idStages"
        spacing: 0.4 * Style.spacing

        Accessible.role: Accessible.List
        Accessible.name: qsTr("Stages of the examination")
        T.ScrollBar.vertical: UiScrollBar {}

        delegate: StageRow {
            objectName: list.objectName + "." + index
            stage: model
            width: list.width - 2 * Style.baseHeight
            onOutcomeChanged: {
                if (outcome === "running" || outcome === "failed") {
                    list.currentIndex = index // in sight
                }
            }
        }
    }

    UiFocusRing {
        anchors.fill: list
        control: list
    }
}
