import QtQuick 2.15
import QtQuick.Controls 2.15
import QtQuick.Controls.impl 2.15

// A drawing of our own, by its name: the file of that name among the icons. It keeps its shape and is drawn anew at each
// size.
Item {
    id: glyph

    property string name
    // Transparent: as it was drawn.
    property color color: "transparent"
    // For who cannot see it; empty: it only goes with a text, and is left out.
    property string description

    Accessible.role: Accessible.Graphic
    Accessible.name: description
    Accessible.ignored: description === ""

    ColorImage {
        anchors.fill: parent
        color: glyph.color
        fillMode: Image.PreserveAspectFit
        source: glyph.name === "" ? "" : "../icons/" + glyph.name + ".svg"
        sourceSize: Qt.size(Math.max(1, width), Math.max(1, height))
    }
}
