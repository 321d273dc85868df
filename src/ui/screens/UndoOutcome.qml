import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// A running undo and its result, with the files that could not be restored.
Card {
    id: outcome

    required property ReportModel model

    contentItem: ColumnLayout {
        spacing: Theme.s8

        RowLayout {
            Layout.fillWidth: true
            visible: outcome.model.undo.isUnderWay
            spacing: Theme.s16

            RoleText {
                Layout.fillWidth: true
                text: qsTrId("report.undoConfirmTitle")
                font.weight: Font.DemiBold
                elide: Text.ElideRight
            }

            BodyText {
                objectName: "undoProgress"
                text: outcome.model.undo.progress
                color: Theme.textSecondary
            }
        }

        ProgressBar {
            objectName: "undoing"
            Layout.fillWidth: true
            visible: outcome.model.undo.isUnderWay
            value: outcome.model.undo.fraction
            tint: "red"
            Accessible.name: qsTrId("report.undoConfirmTitle")
        }

        RowLayout {
            visible: outcome.model.undo.outcome !== ""
            spacing: Theme.s8

            Symbol {
                name: outcome.model.undo.isComplete ? "checkmark.circle.fill" : "exclamationmark.triangle.fill"
                color: outcome.model.undo.isComplete ? Theme.green : Theme.orange
            }

            ColumnLayout {
                spacing: 2

                RoleText {
                    objectName: "undoStatusMessage"
                    Layout.fillWidth: true
                    text: outcome.model.undo.outcome
                    font.weight: Font.DemiBold
                    wrapMode: Text.Wrap
                }

                CaptionText {
                    objectName: "undoCounts"
                    Layout.fillWidth: true
                    visible: text !== ""
                    text: outcome.model.undo.counts
                }
            }
        }

        Disclosure {
            id: warnings

            objectName: "undoWarnings"
            Layout.fillWidth: true
            visible: outcome.model.undo.warnings.length > 0
            text: qsTrId("preview.filter.warnings")

            TextList {
                Layout.fillWidth: true
                lines: outcome.model.undo.warnings
                onCopied: outcome.model.copyUndoWarnings()
            }
        }
    }
}
