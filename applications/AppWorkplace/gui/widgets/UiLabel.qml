import QtQuick 2.15

// A text that is no control. Whatever it shows is plain text; what does not fit is cut with an ellipsis.
Text {
    property bool isMuted: false

    color: isMuted ? Style.textMutedColor : Style.textColor
    elide: Text.ElideRight
    font: Style.fontText
    textFormat: Text.PlainText
    verticalAlignment: Text.AlignVCenter
}
