pragma Singleton
import QtQuick 2.15

// Sizes, colours and fonts, each in one place. Sizes follow the window, so that one layout fits every screen; a finger
// still hits what is five baseHeight high on the smallest.
QtObject {
    id: style

    // Of the window, in pixels; set by its owner.
    property real windowWidth: 1280
    property real windowHeight: 800

    // "light", "dark" or "contrast".
    property string theme: "light"

    readonly property real baseWidth: Math.max(9, Math.round(windowWidth / 120))
    readonly property real baseHeight: Math.max(9, Math.round(windowHeight / 80))

    readonly property font fontText: Qt.font({ pixelSize: Math.round(1.7 * baseHeight) })
    readonly property font fontLabel: Qt.font({ pixelSize: Math.round(2 * baseHeight), bold: true })
    readonly property font fontTitle: Qt.font({ pixelSize: Math.round(2.6 * baseHeight), bold: true })

    readonly property var colors: ({
        "light": {
            window: "#eef1f4", surface: "#ffffff", paper: "#ffffff", text: "#14202b", textMuted: "#51606d", border: "#8796a3",
            disabledBorder: "#b3bec7", accent: "#0b5cad", onAccent: "#ffffff", good: "#0f7a3d", bad: "#b3261e",
            focus: "#0b5cad"
        },
        "dark": {
            window: "#11181f", surface: "#1c2630", paper: "#d7dee4", text: "#e8eef3", textMuted: "#a5b4c0", border: "#6b7c8a",
            disabledBorder: "#485764", accent: "#5aa9f5", onAccent: "#0a131b", good: "#4ccb83", bad: "#ff7a6e",
            focus: "#ffd166"
        },
        "contrast": {
            window: "#000000", surface: "#000000", paper: "#ffffff", text: "#ffffff", textMuted: "#ffffff", border: "#ffffff",
            disabledBorder: "#767676", accent: "#ffff00", onAccent: "#000000", good: "#00ff66", bad: "#ff9d9d",
            focus: "#00ffff"
        }
    })[theme]

    readonly property color windowColor: colors.window
    readonly property color surfaceColor: colors.surface
    // Below what a plugin draws in black, whatever the theme.
    readonly property color paperColor: colors.paper
    readonly property color textColor: colors.text
    readonly property color textMutedColor: colors.textMuted
    readonly property color borderColor: colors.border
    readonly property color widgetDisabledBorderColor: colors.disabledBorder
    readonly property color accentColor: colors.accent
    readonly property color onAccentColor: colors.onAccent
    readonly property color goodColor: colors.good
    readonly property color badColor: colors.bad
    readonly property color focusColor: colors.focus
}
