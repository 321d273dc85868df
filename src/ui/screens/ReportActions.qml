import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// The commands for a run: save its report, open the archive, and, separately, undo it.
ColumnLayout {
    id: actions

    required property ReportModel model

    spacing: Theme.s8

    Flow {
        Layout.fillWidth: true
        spacing: Theme.s8

        PlainButton {
            objectName: "exportCSV"
            visible: actions.model.figures.hasManifest
            enabled: !actions.model.exporting.isUnderWay
            text: qsTrId("report.exportCSV")
            symbol: "doc.text"
            onClicked: actions.model.exportCSV()
        }

        PlainButton {
            objectName: "exportReport"
            visible: actions.model.figures.hasManifest
            enabled: !actions.model.exporting.isUnderWay
            text: qsTrId("report.exportReport")
            symbol: "doc.text"
            onClicked: actions.model.exportReport()
        }

        PlainButton {
            objectName: "openDestination"
            enabled: actions.model.hasDestination
            text: qsTrId("report.openInFinder")
            symbol: "folder.fill"
            onClicked: actions.model.openDestination()
        }

        Item {
            width: Theme.s16
            height: 1
        }

        DestructiveButton {
            objectName: "undo"
            visible: actions.model.figures.hasManifest && !(actions.model.undo.isOfReport && actions.model.undo.isComplete)
            enabled: !actions.model.undo.isUnderWay
            text: qsTrId("report.undo")
            symbol: "arrow.uturn.backward"
            onClicked: actions.model.showUndoAlert = true
        }
    }

    Banner {
        objectName: "exportMessage"
        Layout.fillWidth: true
        visible: text !== ""
        symbol: actions.model.exporting.hasFailed ? "xmark.circle.fill" : "checkmark.circle.fill"
        tint: actions.model.exporting.hasFailed ? "red" : "green"
        text: actions.model.exporting.message
    }
}
