import QtQuick 2.15

// Turns, by steps, as long as it is visible: something runs. It costs nothing when it is not.
UiGlyph {
    id: spinner

    color: Style.accentColor
    height: 2.4 * Style.baseHeight
    name: "icon-busy"
    width: height

    Timer {
        interval: 125
        repeat: true
        running: spinner.visible
        onTriggered: spinner.rotation = (spinner.rotation + 45) % 360
    }
}
