import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import "../widgets"

// The wrenches in range, as they are heard; one touch connects. A number that is known can be typed.
Item {
    id: page

    property var workplace
    property var device

    readonly property int deviceState: device ? device.state : 0
    readonly property bool isIdle: deviceState === 0
    readonly property bool isScanning: deviceState === 1

    function work(serialId) {
        device.work(serialId)
        workplace.page = "work"
    }

    objectName: "connect"

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
        onConnectAsked: number.forceActiveFocus()
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

    UiCard {
        anchors {
            left: parent.left
            right: byHand.left
            top: problem.visible ? problem.bottom : link.bottom
            bottom: parent.bottom
            margins: Style.spacing
        }
        title: qsTr("Wrenches in range")

        ListView {
            id: list

            anchors {
                left: parent.left
                right: parent.right
                top: parent.top
                bottom: scan.top
                margins: Style.focusWidth
                bottomMargin: Style.spacing
            }
            boundsBehavior: Flickable.StopAtBounds
            clip: contentHeight > height
            model: page.device ? page.device.wrenches : []
            spacing: 0.6 * Style.spacing

            Accessible.role: Accessible.List
            Accessible.name: qsTr("Wrenches in range")
            T.ScrollBar.vertical: UiScrollBar {}

            delegate: UiEntry {
                id: entry

                detail: qsTr("%1, %2 dBm", "address, signal").arg(modelData.mac).arg(modelData.rssi)
                enabled: page.isIdle || page.isScanning
                isChosen: !page.isIdle && !page.isScanning && page.device.serialId === modelData.sn
                objectName: page.objectName + ".idWrench." + modelData.sn
                text: modelData.sn
                width: list.width - (list.contentHeight > list.height ? 2 * Style.baseHeight : 0)
                onClicked: page.work(modelData.sn)

                UiSignal {
                    anchors.verticalCenter: parent.verticalCenter
                    color: entry.inkColor
                    rssi: Number(modelData.rssi)
                }
            }
        }

        UiEmpty {
            anchors.fill: list
            glyph: "icon-connect"
            hint: page.isScanning ? qsTr("Switch the wrench on, and come closer with it.")
                                  : page.isIdle ? qsTr("Start a scan to see which ones are there.")
                                                : qsTr("The dongle talks to one wrench at a time; disconnect to scan.")
            text: page.isScanning ? qsTr("No wrench heard yet") : qsTr("No scan yet")
            visible: list.count === 0
        }

        UiButton {
            id: scan

            anchors {
                left: parent.left
                bottom: parent.bottom
            }
            enabled: page.isIdle
            glyph: "icon-search"
            isPrimary: page.isIdle
            objectName: page.objectName + ".idScan"
            text: qsTr("Scan")
            onClicked: page.device.scan()
        }
    }

    UiCard {
        id: byHand

        anchors {
            right: parent.right
            rightMargin: Style.spacing
            top: problem.visible ? problem.bottom : link.bottom
            topMargin: Style.spacing
        }
        contentHeight: number.height + start.height + port.height + 2 * Style.spacing
        title: qsTr("By its number")
        width: Math.max(26 * Style.baseHeight, 0.3 * parent.width)

        UiField {
            id: number

            caption: qsTr("Serial number")
            objectName: page.objectName + ".idNumber"
            text: page.device ? page.device.serialId : ""
            width: parent.width
            onAccepted: {
                if (start.enabled) {
                    page.work(text.trim())
                }
            }
        }

        UiButton {
            id: start

            anchors {
                top: number.bottom
                topMargin: Style.spacing
            }
            enabled: (page.isIdle || page.isScanning) && number.text.trim() !== ""
            glyph: "icon-start"
            objectName: page.objectName + ".idStart"
            text: qsTr("Connect")
            width: parent.width
            onClicked: page.work(number.text.trim())
        }

        UiLabel {
            id: port

            anchors {
                top: start.bottom
                topMargin: Style.spacing
            }
            elide: Text.ElideMiddle
            isMuted: true
            text: page.device ? qsTr("Port: %1").arg(page.device.port) : ""
            width: parent.width
        }
    }
}
