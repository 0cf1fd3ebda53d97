import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import "../widgets"

// Everything that is stored of one row, as it was received.
UiCard {
    id: details

    property var history: null
    property int row: -1
    property var entry: ({})

    readonly property var eventData: entry.eventData || null
    readonly property var names: ({
        convertedTorque: qsTr("torque"), direction: qsTr("direction"), torqueStatus: qsTr("status of the torque"),
        snugTorqueAngle: qsTr("angle from snug torque"), angleStatus: qsTr("status of the angle"),
        readingNumber: qsTr("number of the reading"), readingStatus: qsTr("status of the reading"),
        eventCountNo: qsTr("number of the chunk of input"), progId: qsTr("program")
    })
    readonly property var presetNames: ({
        unit: qsTr("unit"), angle: qsTr("target angle"), torque: qsTr("target torque, in hundredths"),
        snugTorque: qsTr("snug torque"), readings: qsTr("readings")
    })
    readonly property var lines: linesOf(entry)

    signal closed()

    function shown(value) {
        return value === "" ? qsTr("(an empty text)") : String(value)
    }

    function linesOf(from) {
        var lines = []
        var add = function (name, value) {
            if (value !== undefined && value !== null) {
                lines.push({ name: name, value: shown(value) })
            }
        }
        if (from.eventData) {
            Object.keys(names).forEach(function (key) {
                lines.push({ name: names[key],
                             value: from.eventData[key] === undefined ? qsTr("(not received)") : shown(from.eventData[key]) })
            })
            Object.keys(from.eventData).forEach(function (key) {
                if (names[key] === undefined) {
                    add(key, JSON.stringify(from.eventData[key]))
                }
            })
            add(qsTr("line as received"), from.rawLine === undefined ? qsTr("(not known)") : from.rawLine)
            add(qsTr("first after a reconnection"), from.afterReconnection ? qsTr("yes") : qsTr("no"))
        } else {
            add(qsTr("counter"), from.counter)
            add(qsTr("last number before it"), from.countBefore)
            add(qsTr("number behind it"), from.countAfter)
            add(qsTr("repeats the entry"), from.repeatOf)
        }
        add(qsTr("wrench"), from.serialId)
        add(qsTr("port"), from.device)
        add(qsTr("arrived"), from.arrived)
        add(qsTr("entry"), from.id)
        var preset = from.presetData || {}
        Object.keys(preset).forEach(function (key) {
            add(qsTr("preset: %1").arg(presetNames[key] || key),
                typeof preset[key] === "object" ? JSON.stringify(preset[key]) : preset[key])
        })
        return lines
    }

    function fetch() {
        var found = history && row >= 0 ? history.entry(row) : {}
        if (found.id !== undefined || row < 0) {
            entry = found
        }
    }

    title: entry.kind === "gap" ? qsTr("A gap") : entry.kind === "repeat" ? qsTr("A repeated reading")
                                                                         : entry.good ? qsTr("A good result")
                                                                                      : qsTr("A result that is not good")
    onRowChanged: fetch()
    Component.onCompleted: fetch()

    Connections {
        target: details.history
        function onSigLoaded() { details.fetch() }
    }

    Flickable {
        id: flickable

        anchors.fill: parent
        anchors.bottomMargin: close.height + Style.spacing
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        contentHeight: column.height
        contentWidth: width
        activeFocusOnTab: true
        objectName: details.objectName + ".idLines"

        Accessible.role: Accessible.List
        Accessible.name: details.title

        Keys.onDownPressed: contentY = Math.min(contentY + Style.touchSize, Math.max(0, contentHeight - height))
        Keys.onUpPressed: contentY = Math.max(0, contentY - Style.touchSize)

        T.ScrollBar.vertical: UiScrollBar {}

        Column {
            id: column

            width: parent.width - 2 * Style.baseHeight

            Repeater {
                model: details.lines

                Item {
                    height: Math.max(name.implicitHeight, value.implicitHeight) + 0.8 * Style.baseHeight
                    width: column.width

                    Accessible.role: Accessible.ListItem
                    Accessible.name: modelData.name + ": " + modelData.value

                    UiLabel {
                        id: name

                        isMuted: true
                        text: modelData.name
                        width: 0.46 * parent.width
                        wrapMode: Text.Wrap
                    }

                    UiLabel {
                        id: value

                        anchors.left: name.right
                        anchors.leftMargin: Style.baseHeight
                        anchors.right: parent.right
                        text: modelData.value
                        wrapMode: Text.WrapAnywhere
                    }
                }
            }
        }

        UiFocusRing {
            anchors.margins: 0
            control: flickable
            height: flickable.height
            visible: flickable.activeFocus
        }
    }

    UiButton {
        id: close

        anchors {
            bottom: parent.bottom
            right: parent.right
        }
        glyph: "icon-close"
        objectName: details.objectName + ".idClose"
        text: qsTr("Close")
        onClicked: details.closed()
        Keys.onEscapePressed: details.closed()
    }
}
