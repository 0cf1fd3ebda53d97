import QtQuick 2.15
import "../widgets"

// The current result, to be read at two metres: its torque, and whether it is good by shape, word and colour.
UiCard {
    id: card

    property var device

    readonly property var result: device ? device.result : ({})
    readonly property bool hasResult: result.torqueText !== undefined
    readonly property bool isGood: hasResult && result.isGood === true
    readonly property string torque: hasResult ? Style.receivedNumber(result.torqueText) : ""
    readonly property string word: isGood ? qsTr("GOOD") : qsTr("NOT GOOD")

    function hint() {
        if (!device || device.state === 0) {
            return qsTr("Connect to a wrench first.")
        }
        return device.state === 3 ? qsTr("Tighten: the result appears here.") : qsTr("As soon as the wrench is ready, tighten.")
    }

    border.color: hasResult ? (isGood ? Style.goodColor : Style.badColor) : Style.frameColor
    border.width: hasResult ? 4 * Style.lineWidth : Style.lineWidth
    padding: 1.5 * Style.spacing

    Accessible.role: Accessible.StaticText
    Accessible.name: hasResult ? qsTr("%1, torque %2 %3").arg(word).arg(torque).arg(result.unit) : ""

    UiEmpty {
        anchors.fill: parent
        glyph: "icon-work"
        hint: card.hint()
        text: qsTr("No result yet")
        visible: !card.hasResult
    }

    // Made with the first result: its large fonts, and looking for their size, take a good part of the start.
    Loader {
        active: card.hasResult
        anchors.fill: parent

        sourceComponent: Item {
            id: shown

            Column {
                id: verdict

                anchors {
                    left: parent.left
                    top: parent.top
                    bottom: details.top
                    bottomMargin: Style.spacing
                }
                width: 0.27 * parent.width

                UiVerdict {
                    id: shape

                    anchors.horizontalCenter: parent.horizontalCenter
                    height: Math.min(verdict.width, verdict.height - word.height)
                    isGood: card.isGood
                    width: height
                }

                UiLabel {
                    id: word

                    color: card.isGood ? Style.goodColor : Style.badColor
                    font.bold: true
                    font.pixelSize: Math.min(0.2 * verdict.height, 6 * Style.baseHeight)
                    fontSizeMode: Text.HorizontalFit
                    height: 1.3 * Math.min(0.2 * verdict.height, 6 * Style.baseHeight)
                    horizontalAlignment: Text.AlignHCenter
                    minimumPixelSize: Style.fontText.pixelSize
                    text: card.word
                    width: verdict.width
                }
            }

            UiLabel {
                id: torque

                anchors {
                    left: verdict.right
                    leftMargin: Style.spacing
                    right: unit.left
                    rightMargin: 0.5 * Style.spacing
                    top: parent.top
                    bottom: details.top
                    bottomMargin: Style.spacing
                }
                elide: Text.ElideNone
                font.bold: true
                font.pixelSize: Math.max(Style.fontText.pixelSize, shown.height - details.height)
                fontSizeMode: Text.Fit
                horizontalAlignment: Text.AlignHCenter
                minimumPixelSize: Style.fontText.pixelSize
                objectName: "work.idTorque"
                text: card.torque
            }

            UiLabel {
                id: unit

                anchors {
                    right: parent.right
                    verticalCenter: torque.verticalCenter
                }
                font.pixelSize: 4 * Style.baseHeight
                text: card.hasResult && card.result.unit ? card.result.unit : ""
            }

            Flow {
                id: details

                anchors {
                    left: parent.left
                    right: parent.right
                    bottom: parent.bottom
                }
                spacing: 2 * Style.spacing

                Repeater {
                    model: card.hasResult ? [
                        { name: qsTr("angle"), value: Style.receivedNumber(card.result.angle) + " °" },
                        { name: qsTr("direction"), value: card.result.direction },
                        { name: qsTr("reading"), value: card.result.number },
                        { name: qsTr("program"), value: card.result.program },
                        { name: qsTr("at"), value: Style.time(card.result.arrived) }
                    ].filter(function (each) { return String(each.value).trim() !== "" && each.value !== undefined }) : []

                    Row {
                        spacing: 0.6 * Style.spacing

                        UiLabel {
                            isMuted: true
                            text: modelData.name
                        }

                        UiLabel {
                            font.bold: true
                            font.pixelSize: Style.fontText.pixelSize
                            text: modelData.value
                        }
                    }
                }
            }
        }
    }
}
