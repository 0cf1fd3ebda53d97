import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import "widgets"

// At the side of the window: the pages, the devices with their states, and how the window is to look.
Rectangle {
    id: panel

    property var window
    property var pages: []
    readonly property int deviceCount: list.count

    readonly property var languageNames: ({ "en": "English", "de": "Deutsch", "fr": "Français" })
    readonly property var themes: [
        { value: "light", name: qsTr("light") },
        { value: "dark", name: qsTr("dark") },
        { value: "contrast", name: qsTr("high contrast") }
    ]

    color: Style.surfaceColor

    Rectangle {
        anchors.right: parent.right
        color: Style.frameColor
        height: parent.height
        width: Style.lineWidth
    }

    Column {
        id: pageButtons

        anchors {
            left: parent.left
            right: parent.right
            top: parent.top
            margins: Style.spacing
        }
        spacing: 0.3 * Style.baseHeight

        Repeater {
            model: panel.pages

            UiButton {
                alignment: Qt.AlignLeft
                glyph: modelData.glyph
                isChosen: panel.window.page === modelData.name
                isFlat: true
                objectName: panel.objectName + ".idPage." + modelData.name
                text: modelData.title
                width: pageButtons.width
                onClicked: panel.window.page = modelData.name
            }
        }
    }

    UiLabel {
        id: heading

        anchors {
            left: parent.left
            right: parent.right
            top: pageButtons.bottom
            margins: Style.spacing
        }
        font: Style.fontCaption
        isMuted: true
        text: list.count === 1 ? qsTr("Device") : qsTr("Devices (%1)").arg(list.count)
    }

    ListView {
        id: list

        anchors {
            left: parent.left
            right: parent.right
            top: heading.bottom
            topMargin: 0.5 * Style.spacing
            bottom: looks.top
            bottomMargin: Style.spacing
        }
        activeFocusOnTab: true
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        currentIndex: panel.window.currentIndex
        highlightMoveDuration: 0
        keyNavigationEnabled: false
        model: panel.window.devices
        objectName: panel.objectName + ".idDevices"

        Accessible.role: Accessible.List
        Accessible.name: heading.text
        Keys.onDownPressed: panel.window.currentIndex = Math.min(currentIndex + 1, count - 1)
        Keys.onUpPressed: panel.window.currentIndex = Math.max(currentIndex - 1, 0)
        T.ScrollBar.vertical: UiScrollBar {}

        delegate: DeviceRow {
            device: model.device
            isCurrent: ListView.isCurrentItem
            isFocused: isCurrent && list.activeFocus
            objectName: panel.objectName + ".idDevice." + index
            width: list.width
            onChosen: panel.window.currentIndex = index
        }
    }

    Column {
        id: looks

        anchors {
            left: parent.left
            right: parent.right
            bottom: parent.bottom
            margins: Style.spacing
        }
        spacing: 0.5 * Style.spacing

        UiChoice {
            caption: qsTr("Language")
            currentIndex: panel.window.languages.indexOf(panel.window.language)
            model: panel.window.languages.map(function (name) { return panel.languageNames[name] || name })
            objectName: panel.objectName + ".idLanguage"
            width: looks.width
            onActivated: panel.window.language = panel.window.languages[index]
        }

        UiChoice {
            caption: qsTr("Theme")
            currentIndex: panel.themes.findIndex(function (each) { return each.value === panel.window.theme })
            model: panel.themes.map(function (each) { return each.name })
            objectName: panel.objectName + ".idTheme"
            width: looks.width
            onActivated: panel.window.theme = panel.themes[index].value
        }
    }
}
