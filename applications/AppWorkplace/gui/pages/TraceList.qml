import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import "../widgets"

// The entries of a trace, the newest last and in sight, unless one has gone back to an older one. The current one is
// shown whole.
Rectangle {
    id: frame

    property alias model: list.model
    property string emptyHint

    readonly property real momentWidth: 15 * Style.baseHeight
    readonly property real directionWidth: 4 * Style.baseHeight

    border.color: Style.frameColor
    border.width: Style.lineWidth
    color: Style.surfaceColor
    radius: Style.radius

    UiFocusRing { control: list }

    UiLabel {
        id: momentTitle

        font: Style.fontCaption
        height: 3 * Style.baseHeight
        horizontalAlignment: Text.AlignRight
        isMuted: true
        text: qsTr("seconds")
        width: frame.momentWidth
    }

    UiLabel {
        anchors {
            left: momentTitle.right
            leftMargin: frame.directionWidth
            right: parent.right
        }
        font: Style.fontCaption
        height: momentTitle.height
        isMuted: true
        text: qsTr("> to the device, < from it, ! a remark")
    }

    ListView {
        id: list

        // The newest is in sight, and stays so.
        property bool follows: true

        function goTo(index) {
            currentIndex = Math.max(0, Math.min(count - 1, index))
            follows = currentIndex === count - 1
        }
        function page() {
            return Math.max(1, Math.floor(height / (3 * Style.baseHeight)) - 1)
        }
        function followEnd() {
            if (follows) {
                positionViewAtEnd()
            }
        }

        anchors {
            fill: parent
            margins: Style.lineWidth
            topMargin: momentTitle.height
        }
        activeFocusOnTab: true
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        currentIndex: -1
        highlightMoveDuration: 0
        keyNavigationEnabled: false
        objectName: frame.objectName + ".idRows"
        onCountChanged: Qt.callLater(followEnd)
        onHeightChanged: Qt.callLater(followEnd)
        onModelChanged: {
            follows = true
            currentIndex = -1
        }
        onMovementEnded: Qt.callLater(function () { list.follows = list.atYEnd })

        Accessible.role: Accessible.List
        Accessible.name: qsTr("Entries of the trace, %1").arg(count)
        Keys.onDownPressed: goTo(currentIndex + 1)
        Keys.onUpPressed: goTo((currentIndex < 0 ? count : currentIndex) - 1)
        Keys.onPressed: {
            const steps = { [Qt.Key_Home]: -count, [Qt.Key_End]: count, [Qt.Key_PageUp]: -page(),
                            [Qt.Key_PageDown]: page() }
            if (steps[event.key] !== undefined) {
                goTo((currentIndex < 0 ? count - 1 : currentIndex) + steps[event.key])
                event.accepted = true
            }
        }
        T.ScrollBar.vertical: UiScrollBar {
            onPressedChanged: list.follows = !pressed && list.atYEnd
        }

        delegate: Rectangle {
            id: row

            readonly property bool isCurrent: ListView.isCurrentItem
            readonly property color ink: model.direction === "sent" ? Style.accentColor
                                                                    : model.direction === "arrived" ? Style.textColor
                                                                                                    : Style.noticeColor

            Accessible.role: Accessible.ListItem
            Accessible.name: [model.moment, sign.spoken, model.text].join(", ")

            color: isCurrent ? Style.pressedColor : index % 2 ? Style.stripeColor : Style.surfaceColor
            height: Math.max(3 * Style.baseHeight, words.height)
            width: list.width

            UiLabel {
                id: moment

                font { family: "monospace"; pixelSize: Style.fontText.pixelSize }
                height: 3 * Style.baseHeight
                horizontalAlignment: Text.AlignRight
                isMuted: true
                text: model.moment
                width: frame.momentWidth
            }

            UiLabel {
                id: sign

                readonly property string spoken: model.direction === "sent" ? qsTr("sent")
                                                                            : model.direction === "arrived"
                                                                              ? qsTr("arrived") : qsTr("remark")

                anchors.left: moment.right
                color: row.ink
                font { family: "monospace"; pixelSize: Style.fontText.pixelSize; bold: true }
                height: moment.height
                horizontalAlignment: Text.AlignHCenter
                text: model.direction === "sent" ? ">" : model.direction === "arrived" ? "<" : "!"
                width: frame.directionWidth
            }

            UiLabel {
                id: words

                anchors {
                    left: sign.right
                    right: parent.right
                    rightMargin: 2 * Style.baseHeight
                }
                color: row.ink
                font {
                    family: model.direction === "remark" ? Style.fontText.family : "monospace"
                    italic: model.direction === "remark"
                    pixelSize: Style.fontText.pixelSize
                }
                height: row.isCurrent ? Math.max(moment.height, implicitHeight) : moment.height
                text: model.text
                wrapMode: row.isCurrent ? Text.WrapAnywhere : Text.NoWrap
            }

            TapHandler {
                onTapped: {
                    list.forceActiveFocus()
                    list.currentIndex = row.isCurrent ? -1 : index
                    list.follows = false
                }
            }
        }
    }

    UiEmpty {
        anchors.fill: list
        glyph: "icon-trace"
        hint: frame.emptyHint
        text: qsTr("No entries")
        visible: list.count === 0
    }

    UiButton {
        anchors {
            right: parent.right
            rightMargin: 3 * Style.baseHeight
            bottom: parent.bottom
            bottomMargin: Style.spacing
        }
        glyph: "icon-down"
        isPrimary: true
        objectName: frame.objectName + ".idNewest"
        text: qsTr("Newest")
        visible: !list.follows && list.count > 0
        onClicked: {
            list.currentIndex = -1
            list.follows = true
            list.followEnd()
        }
    }
}
