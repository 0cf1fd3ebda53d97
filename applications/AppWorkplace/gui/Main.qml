import QtQuick 2.15
import QtQuick.Window 2.15
import "widgets"

// The window: at its side where one can go and the devices, beside it the page. `workplace` is the window's model.
Window {
    id: window

    // Each page is an item with the properties "workplace" and "device".
    readonly property var pages: [
        { name: "work", glyph: "icon-work", title: qsTr("Work"), source: "pages/WorkPage.qml" },
        { name: "connect", glyph: "icon-connect", title: qsTr("Connect"), source: "pages/ConnectPage.qml" },
        { name: "results", glyph: "icon-results", title: qsTr("Results"), source: "pages/ResultsPage.qml" },
        { name: "panel", glyph: "icon-panel", title: qsTr("Maintenance"), source: "pages/PanelPage.qml" },
        { name: "trace", glyph: "icon-trace", title: qsTr("Trace"), source: "pages/TracePage.qml" },
        { name: "doctor", glyph: "icon-doctor", title: qsTr("Doctor"), source: "pages/DoctorPage.qml" }
    ]
    readonly property var page: pages.find(function (each) { return each.name === workplace.page }) || pages[0]

    function goTo(index) {
        if (index >= 0 && index < pages.length) {
            workplace.page = pages[index].name
        }
    }

    width: 1280
    height: 800
    minimumWidth: 1024
    minimumHeight: 600
    color: Style.windowColor
    title: workplace.current ? qsTr("%1 – %2 – Workplace").arg(page.title).arg(workplace.current.name)
                             : qsTr("%1 – Workplace").arg(page.title)

    // What runs is ended in an orderly way first; asked a second time, it goes at once.
    onClosing: {
        close.accepted = false
        workplace.close()
    }

    Binding {
        target: Style
        property: "windowWidth"
        value: window.width
    }
    Binding {
        target: Style
        property: "windowHeight"
        value: window.height
    }
    Binding {
        target: Style
        property: "localeName"
        value: workplace.language === "en" ? "C" : workplace.language
    }
    Binding {
        target: Style
        property: "theme"
        value: workplace.theme
    }

    // A picture of the window is one of what stands in it.
    Rectangle {
        anchors.fill: parent
        color: window.color
    }

    Repeater {
        model: window.pages

        Item {
            Shortcut {
                sequence: "Ctrl+" + (index + 1)
                onActivated: window.goTo(index)
            }
        }
    }

    Shortcut {
        sequence: "Ctrl+Down"
        onActivated: workplace.currentIndex = Math.min(workplace.currentIndex + 1, side.deviceCount - 1)
    }

    Shortcut {
        sequence: "Ctrl+Up"
        onActivated: workplace.currentIndex = Math.max(workplace.currentIndex - 1, 0)
    }

    SidePanel {
        id: side

        height: parent.height
        objectName: "window.idSide"
        pages: window.pages
        width: 22 * Style.baseHeight
        window: workplace
    }

    Item {
        anchors {
            left: side.right
            right: parent.right
            top: parent.top
            bottom: parent.bottom
        }

        Repeater {
            model: window.pages

            // Made when it is first gone to, and kept as it was left.
            Loader {
                id: loader

                readonly property bool isCurrent: window.page.name === modelData.name
                readonly property var device: workplace.current

                anchors.fill: parent
                focus: isCurrent
                objectName: "window.idPage." + modelData.name
                visible: isCurrent

                function load() {
                    if (isCurrent && status === Loader.Null) {
                        setSource(modelData.source, { workplace: workplace, device: workplace.current })
                    }
                }

                onDeviceChanged: {
                    if (item) {
                        item.device = device
                    }
                }
                onIsCurrentChanged: load()
                Component.onCompleted: load()
            }
        }
    }
}
