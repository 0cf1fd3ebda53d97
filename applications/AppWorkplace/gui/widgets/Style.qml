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

    // Of the numbers and dates that are shown.
    property string localeName: "C"

    readonly property real baseWidth: Math.max(9, Math.round(windowWidth / 120))
    readonly property real baseHeight: Math.max(9, Math.round(windowHeight / 80))

    // What a finger hits, and what a mouse hits without care.
    readonly property real touchSize: Math.max(44, 5 * baseHeight)
    readonly property real spacing: baseHeight
    readonly property real radius: Math.round(0.5 * baseHeight)
    readonly property real lineWidth: Math.max(1, Math.round(baseHeight / 9))
    readonly property real focusWidth: 2 * lineWidth
    // From the top of a field to what is typed, below its caption.
    readonly property real captionHeight: 1.9 * baseHeight

    readonly property font fontCaption: Qt.font({ pixelSize: Math.round(1.35 * baseHeight) })
    readonly property font fontText: Qt.font({ pixelSize: Math.round(1.7 * baseHeight) })
    readonly property font fontLabel: Qt.font({ pixelSize: Math.round(2 * baseHeight), bold: true })
    readonly property font fontTitle: Qt.font({ pixelSize: Math.round(2.6 * baseHeight), bold: true })

    readonly property var colors: ({
        "light": {
            window: "#eef1f4", surface: "#ffffff", paper: "#ffffff", text: "#14202b", textMuted: "#51606d", border: "#8796a3",
            disabledBorder: "#b3bec7", accent: "#0b5cad", accentText: "#ffffff", good: "#0f7a3d", bad: "#b3261e",
            focus: "#0b5cad", hover: "#e3ebf2", pressed: "#cfdce8", accentPressed: "#08467f", verdictText: "#ffffff",
            textDisabled: "#6c7883", frame: "#c9d2da", stripe: "#f5f7f9", notice: "#8a5300"
        },
        "dark": {
            window: "#11181f", surface: "#1c2630", paper: "#d7dee4", text: "#e8eef3", textMuted: "#a5b4c0", border: "#6b7c8a",
            disabledBorder: "#485764", accent: "#5aa9f5", accentText: "#0a131b", good: "#4ccb83", bad: "#ff7a6e",
            focus: "#ffd166", hover: "#273442", pressed: "#34475a", accentPressed: "#86c1fa", verdictText: "#0a131b",
            textDisabled: "#8494a1", frame: "#35434f", stripe: "#212c37", notice: "#ffc15a"
        },
        "contrast": {
            window: "#000000", surface: "#000000", paper: "#ffffff", text: "#ffffff", textMuted: "#ffffff", border: "#ffffff",
            disabledBorder: "#767676", accent: "#ffff00", accentText: "#000000", good: "#00ff66", bad: "#ff9d9d",
            focus: "#00ffff", hover: "#303030", pressed: "#505050", accentPressed: "#cccc00", verdictText: "#000000",
            textDisabled: "#a0a0a0", frame: "#ffffff", stripe: "#000000", notice: "#ffff00"
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
    readonly property color accentTextColor: colors.accentText
    readonly property color goodColor: colors.good
    readonly property color badColor: colors.bad
    readonly property color focusColor: colors.focus
    readonly property color hoverColor: colors.hover
    readonly property color pressedColor: colors.pressed
    readonly property color accentPressedColor: colors.accentPressed
    // On what is good or bad all over.
    readonly property color verdictTextColor: colors.verdictText
    readonly property color textDisabledColor: colors.textDisabled
    // Around what is no control.
    readonly property color frameColor: colors.frame
    // Every other row of a table.
    readonly property color stripeColor: colors.stripe
    // Neither good nor bad: under way, or to be looked at.
    readonly property color noticeColor: colors.notice

    // A number for people, with so many decimals.
    function number(value, decimals) {
        return Number(value).toLocaleString(Qt.locale(localeName), "f", decimals)
    }

    // A number that came as a text, for people: with as many decimals as were received. What is no number stays as it is.
    function receivedNumber(text) {
        var value = Number(text)
        var point = String(text).indexOf(".")
        return String(text).trim() === "" || isNaN(value) ? String(text)
                                                          : number(value, point < 0 ? 0 : text.length - point - 1)
    }

    function time(date) {
        return date.toLocaleTimeString(Qt.locale(localeName), "HH:mm:ss")
    }
    // On paper: buttons, and where the keyboard is.
    readonly property color paperFocusColor: theme === "contrast" ? "#c000c0" : "#0b5cad"
    readonly property color paperButtonColor: theme === "contrast" ? "#000000" : theme === "dark" ? "#b4c3d0" : "#dbe4ec"
    readonly property color paperButtonPressedColor: theme === "contrast" ? "#505050"
                                                                          : theme === "dark" ? "#94a8b8" : "#b6c6d5"
    readonly property color paperButtonTextColor: theme === "contrast" ? "#ffffff" : "#0a131b"

    // Of the columns of a table.
    function sumOfWidths(columns) {
        return columns.reduce(function (sum, column) { return sum + column.width }, 0)
    }
}
