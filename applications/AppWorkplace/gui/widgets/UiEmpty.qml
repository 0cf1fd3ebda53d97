import QtQuick 2.15

// Stands where there is nothing to show yet: says why, and what to do.
Item {
    id: empty

    property string glyph
    property string text
    property string hint

    implicitHeight: column.implicitHeight

    Accessible.role: Accessible.StaticText
    Accessible.name: hint === "" ? text : text + " " + hint

    Column {
        id: column

        anchors.centerIn: parent
        spacing: Style.spacing
        width: Math.min(parent.width, 60 * Style.baseHeight)

        UiGlyph {
            anchors.horizontalCenter: parent.horizontalCenter
            color: Style.textMutedColor
            height: 6 * Style.baseHeight
            name: empty.glyph
            visible: name !== "" && empty.height > 20 * Style.baseHeight
            width: height
        }

        UiLabel {
            font: Style.fontLabel
            horizontalAlignment: Text.AlignHCenter
            text: empty.text
            width: parent.width
            wrapMode: Text.Wrap
        }

        UiLabel {
            horizontalAlignment: Text.AlignHCenter
            isMuted: true
            text: empty.hint
            visible: text !== ""
            width: parent.width
            wrapMode: Text.Wrap
        }
    }
}
