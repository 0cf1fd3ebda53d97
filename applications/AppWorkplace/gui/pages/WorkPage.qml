import QtQuick 2.15
import "../widgets"

// The day's work: how the link is, the programs, the lock, the current result, and how the last ones ran.
Item {
    id: page

    property var workplace
    property var device

    readonly property bool isWorking: device ? device.state === 3 : false
    readonly property real sideWidth: Math.max(26 * Style.baseHeight, 0.24 * width)

    objectName: "work"

    LinkBar {
        id: link

        anchors {
            left: parent.left
            right: parent.right
            top: parent.top
            margins: Style.spacing
        }
        device: page.device
        objectName: page.objectName + ".idLink"
        onConnectAsked: page.workplace.page = "connect"
    }

    UiProblem {
        id: problem

        anchors {
            left: parent.left
            right: parent.right
            top: link.bottom
            margins: Style.spacing
        }
        cause: page.device ? page.device.problemCause : ""
        height: visible ? implicitHeight : 0
        mend: page.device ? page.device.problemMend : ""
        objectName: page.objectName + ".idProblem"
        what: page.device ? page.device.problemWhat : ""
        onClosed: page.device.forgetProblem()
    }

    Item {
        id: middle

        anchors {
            left: parent.left
            right: parent.right
            top: problem.visible ? problem.bottom : link.bottom
            bottom: parent.bottom
            margins: Style.spacing
        }

        ResultCard {
            id: result

            anchors {
                left: parent.left
                right: side.left
                rightMargin: Style.spacing
                top: parent.top
                bottom: run.top
                bottomMargin: Style.spacing
            }
            device: page.device
        }

        RunCard {
            id: run

            anchors {
                left: parent.left
                right: side.left
                rightMargin: Style.spacing
                bottom: parent.bottom
            }
            device: page.device
            height: Math.min(26 * Style.baseHeight, 0.42 * parent.height)
        }

        Item {
            id: side

            anchors {
                right: parent.right
                top: parent.top
                bottom: parent.bottom
            }
            width: page.sideWidth

            ProgramList {
                anchors {
                    left: parent.left
                    right: parent.right
                    top: parent.top
                    bottom: lock.top
                    bottomMargin: Style.spacing
                }
                device: page.device
                isWorking: page.isWorking
                objectName: page.objectName + ".idPrograms"
            }

            LockCard {
                id: lock

                anchors {
                    left: parent.left
                    right: parent.right
                    bottom: parent.bottom
                }
                device: page.device
                isWorking: page.isWorking
                objectName: page.objectName + ".idLock"
            }
        }
    }
}
