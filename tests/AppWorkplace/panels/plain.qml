import QtQuick 2.15

// A panel without the host's frame: it notes what it is told.
Item {
    property string told: "{OBJECT_NAME}|{OBJECT_ID}|{OBJECT_REFERENCE}"
    property int updates: 0

    signal updateData()

    objectName: "plain"
    onUpdateData: ++updates
}
