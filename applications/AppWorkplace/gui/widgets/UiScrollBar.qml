import QtQuick 2.15
import QtQuick.Templates 2.15 as T

// Where one is in what is longer than its place; wide enough to be taken by a finger when it is needed.
T.ScrollBar {
    id: bar

    implicitHeight: 1.6 * Style.baseHeight
    implicitWidth: 1.6 * Style.baseHeight
    minimumSize: 0.08
    padding: 0.3 * Style.baseHeight
    visible: size < 1 && policy !== T.ScrollBar.AlwaysOff

    contentItem: Rectangle {
        color: bar.pressed ? Style.accentColor : Style.borderColor
        implicitHeight: Style.baseHeight
        implicitWidth: Style.baseHeight
        radius: Math.min(width, height) / 2
    }
}
