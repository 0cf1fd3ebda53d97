import QtQuick 2.15
import "../widgets"

// Shows or hides the entries of one direction.
UiButton {
    // "sent", "arrived" or "remark".
    property string direction

    Accessible.role: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checked: isChosen

    description: direction === "sent" ? qsTr("Show what was sent")
                                      : direction === "arrived" ? qsTr("Show what has arrived") : qsTr("Show remarks")
    glyph: isChosen ? "icon-good" : ""
    text: direction === "sent" ? qsTr("> sent") : direction === "arrived" ? qsTr("< arrived") : qsTr("! remarks")
}
