import QtQuick 2.15
import "../widgets"

// Which of the stored results are listed, and the way to their export.
Item {
    id: filters

    property var history: null

    readonly property var period: history ? history.period : null
    // In the order of HistoryPeriod::Kind; the last has two fields of its own.
    readonly property var periods: [qsTr("all"), qsTr("today"), qsTr("yesterday"), qsTr("last 7 days"), qsTr("last 30 days"),
        qsTr("from … to …")]
    readonly property int between: periods.length - 1
    readonly property bool isBetween: period ? period.kind === between : false
    readonly property real choiceWidth: (width - buttons.width - 4 * Style.spacing) / 4

    signal exportWanted()

    function withAny(values) {
        return [qsTr("all")].concat(values || [])
    }

    implicitHeight: column.implicitHeight

    Column {
        id: column

        spacing: Style.spacing
        width: parent.width

        Row {
            spacing: Style.spacing

            UiChoice {
                caption: qsTr("Time")
                currentIndex: filters.period ? filters.period.kind : 0
                model: filters.periods
                objectName: filters.objectName + ".idPeriod"
                width: filters.choiceWidth
                onActivated: filters.period.kind = index
            }

            UiChoice {
                caption: qsTr("Wrench")
                currentIndex: filters.history ? Math.max(0, filters.history.wrenches.indexOf(filters.history.wrench) + 1) : 0
                model: filters.withAny(filters.history ? filters.history.wrenches : [])
                objectName: filters.objectName + ".idWrench"
                width: filters.choiceWidth
                onActivated: filters.history.wrench = index === 0 ? "" : model[index]
            }

            UiChoice {
                caption: qsTr("Program")
                currentIndex: filters.history ? Math.max(0, filters.history.programs.indexOf(filters.history.program) + 1) : 0
                model: filters.withAny(filters.history ? filters.history.programs : [])
                objectName: filters.objectName + ".idProgram"
                width: filters.choiceWidth
                onActivated: filters.history.program = index === 0 ? "" : model[index]
            }

            UiChoice {
                readonly property var verdicts: ["", "ok", "nok"]

                caption: qsTr("Verdict")
                currentIndex: filters.history ? verdicts.indexOf(filters.history.verdict) : 0
                model: [qsTr("all"), qsTr("good"), qsTr("not good")]
                objectName: filters.objectName + ".idVerdict"
                width: filters.choiceWidth
                onActivated: filters.history.verdict = verdicts[index]
            }

            Row {
                id: buttons

                spacing: Style.spacing

                UiButton {
                    description: qsTr("Let all through")
                    enabled: filters.history ? filters.history.isFiltered : false
                    glyph: "icon-close"
                    objectName: filters.objectName + ".idReset"
                    onClicked: filters.history.resetFilters()
                }

                UiButton {
                    glyph: "icon-save"
                    objectName: filters.objectName + ".idExport"
                    text: qsTr("Export …")
                    onClicked: filters.exportWanted()
                }
            }
        }

        Row {
            spacing: Style.spacing
            visible: filters.isBetween

            UiField {
                id: since

                caption: qsTr("From")
                objectName: filters.objectName + ".idSince"
                placeholderText: qsTr("2026-11-21 or 2026-11-21 08:30")
                text: filters.period ? filters.period.since : ""
                width: 1.5 * filters.choiceWidth
                onEditingFinished: filters.period.since = text
            }

            UiField {
                id: until

                caption: qsTr("To")
                objectName: filters.objectName + ".idUntil"
                placeholderText: qsTr("2026-11-21 or 2026-11-21 08:30")
                text: filters.period ? filters.period.until : ""
                width: 1.5 * filters.choiceWidth
                onEditingFinished: filters.period.until = text
            }

            UiLabel {
                readonly property bool isWrong: filters.period && (!filters.period.isSinceRight || !filters.period.isUntilRight)

                color: Style.badColor
                height: Style.touchSize
                objectName: filters.objectName + ".idWrong"
                text: isWrong ? qsTr("That is no date, and no date and time; it is left out.") : ""
                width: filters.width - 3 * filters.choiceWidth - 2 * Style.spacing
                wrapMode: Text.Wrap
            }
        }
    }
}
