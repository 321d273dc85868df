import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// Shows how the run ended.
Item {
    id: heading

    required property ReportModel model
    readonly property bool isUndone: model.undo.isOfReport
    readonly property bool hasFailures: model.figures.hasFailures
    readonly property color tint: isUndone ? model.undo.isComplete ? Theme.grey : Theme.orange : model.figures.hasOnlyFailures ? Theme.red
                                           : hasFailures ? Theme.orange : Theme.green

    implicitHeight: row.implicitHeight

    RowLayout {
        id: row

        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(implicitWidth, parent.width)
        spacing: Theme.s16

        Rectangle {
            implicitWidth: 56
            implicitHeight: 56
            radius: 28
            color: Theme.soft(heading.tint)

            Symbol {
                anchors.centerIn: parent
                name: heading.isUndone ? "arrow.uturn.backward" : heading.model.figures.hasOnlyFailures ? "xmark.circle.fill"
                      : heading.hasFailures ? "exclamationmark.triangle.fill" : "checkmark.circle.fill"
                size: 32
                color: heading.tint
            }
        }

        ColumnLayout {
            spacing: Theme.s4

            TitleText {
                Layout.fillWidth: true
                text: qsTrId("report.title")
                horizontalAlignment: Text.AlignLeft
            }

            SubtitleText {
                objectName: "outcome"
                Layout.fillWidth: true
                text: heading.isUndone ? heading.model.undo.isComplete ? "This run was taken back." : "This run was taken back in part." : heading.model.figures.subtitle || qsTrId("report.subtitle")
                horizontalAlignment: Text.AlignLeft
            }
        }
    }
}
