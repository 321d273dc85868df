import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// The outcome of a run, and its commands.
Item {
    id: screen

    required property ReportModel model

    Page {
        anchors.top: parent.top
        anchors.bottom: bar.top
        width: parent.width
        contentHeight: content.implicitHeight + 2 * Theme.s24

        ColumnLayout {
            id: content

            anchors.horizontalCenter: parent.horizontalCenter
            y: Theme.s24
            width: Math.min(Theme.contentWidth, parent.width - 2 * Theme.s32)
            spacing: Theme.s16

            ReportHeading {
                Layout.fillWidth: true
                model: screen.model
            }

            UndoOutcome {
                Layout.fillWidth: true
                visible: screen.model.undo.isUnderWay || screen.model.undo.outcome !== ""
                model: screen.model
            }

            RowLayout {
                Layout.fillWidth: true
                spacing: Theme.s16

                RunTile {
                    symbol: "checkmark.shield.fill"
                    tint: "green"
                    value: screen.model.figures.organized
                    caption: qsTrId("report.organized")
                }

                RunTile {
                    symbol: "arrowshape.turn.up.right.fill"
                    tint: "orange"
                    value: screen.model.figures.skipped
                    caption: qsTrId("report.skipped")
                }

                RunTile {
                    symbol: "exclamationmark.triangle.fill"
                    tint: screen.model.figures.hasFailures ? "red" : "grey"
                    value: screen.model.figures.errors
                    caption: qsTrId("report.errors")
                }

                RunTile {
                    symbol: "externaldrive.fill"
                    tint: "blue"
                    value: screen.model.figures.totalTransferred
                    caption: qsTrId("report.totalTransferred")
                }
            }

            FailureCard {
                objectName: "failures"
                Layout.fillWidth: true
                visible: screen.model.figures.hasFailures && !screen.model.undo.isOfReport
                groups: screen.model.figures.failures
                lines: screen.model.figures.failureLines
                onCopied: screen.model.copyFailures()
            }

            Banner {
                objectName: "journalProblem"
                Layout.fillWidth: true
                visible: text !== "" && !screen.model.undo.isOfReport
                symbol: "exclamationmark.triangle.fill"
                text: screen.model.figures.journalProblem
            }

            Banner {
                objectName: "notices"
                Layout.fillWidth: true
                visible: text !== ""
                symbol: "exclamationmark.triangle.fill"
                text: screen.model.figures.notices
            }

            BodyText {
                objectName: "proof"
                Layout.fillWidth: true
                visible: text !== ""
                text: screen.model.figures.proof
            }

            ReportActions {
                Layout.fillWidth: true
                model: screen.model
            }

            RowLayout {
                Layout.fillWidth: true
                spacing: Theme.s16

                ArchiveTimeline {
                    Layout.fillWidth: true
                    Layout.preferredWidth: 3
                    Layout.alignment: Qt.AlignTop
                    years: screen.model.figures.timeline
                }

                RunStatistics {
                    Layout.fillWidth: true
                    Layout.preferredWidth: 2
                    Layout.alignment: Qt.AlignTop
                    model: screen.model
                }
            }
        }
    }

    BottomBar {
        id: bar

        anchors.bottom: parent.bottom
        width: parent.width

        PlainButton {
            objectName: "newArchive"
            text: qsTrId("report.newArchive")
            enabled: !screen.model.undo.isUnderWay
            onClicked: screen.model.startNewArchive()
        }

        Item {
            Layout.fillWidth: true
        }

        PrimaryButton {
            objectName: "done"
            text: qsTrId("common.done")
            enabled: !screen.model.undo.isUnderWay
            onClicked: screen.model.done()
        }
    }

    UndoQuestion {
        id: undoQuestion

        forecast: screen.model.undo.forecast
        onConfirmed: screen.model.confirmUndo()
        onCancelled: screen.model.showUndoAlert = false
    }

    Connections {
        target: screen.model

        function onUndoChanged() {
            undoQuestion.ask(screen.model.showUndoAlert);
        }
    }
}
