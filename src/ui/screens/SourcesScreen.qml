pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// The first step: the folders and drives to scan.
Item {
    id: screen

    required property SourcesModel model
    required property ReportModel report ///< its undo and the result are also shown here

    // A drop anywhere on the screen counts for the zone.
    DropArea {
        id: drop

        anchors.fill: parent
        keys: ["text/uri-list"]
        onEntered: drag => {
            drag.accepted = screen.model.takes(drag.getDataAsArrayBuffer("text/uri-list"));
        }
        onDropped: drag => {
            screen.model.drop(drag.getDataAsArrayBuffer("text/uri-list"));
            // Never accepted as a move, because the other program could then delete its files.
            drag.accept(Qt.CopyAction);
        }
    }

    Page {
        id: page

        anchors.top: parent.top
        anchors.bottom: bar.top
        width: parent.width
        contentHeight: column.height + 2 * Theme.s24

        ColumnLayout {
            id: column

            x: (page.width - width) / 2
            y: Math.max(Theme.s24, page.height * 0.08) // fixed, so nothing moves when a card is added
            width: Math.min(Theme.contentWidth, page.width - 2 * Theme.s32)
            spacing: Theme.s24

            SourcesHero {
                Layout.fillWidth: true
            }

            SourcesDropZone {
                Layout.fillWidth: true
                isTargeted: drop.containsDrag
                isCompact: screen.model.count > 0
                onChoose: screen.model.chooseFolders()
            }

            BodyText {
                Layout.fillWidth: true
                visible: screen.model.count === 0
                text: qsTrId("sources.emptyInstruction")
                color: Theme.textSecondary
                horizontalAlignment: Text.AlignHCenter
            }

            SourcesList {
                Layout.fillWidth: true
                visible: screen.model.count > 0
                model: screen.model
            }

            InterruptedRun {
                Layout.fillWidth: true
                visible: screen.model.history.interrupted !== ""
                history: screen.model.history
            }

            UndoOutcome {
                Layout.fillWidth: true
                visible: screen.report.undo.isUnderWay || screen.report.undo.outcome !== ""
                model: screen.report
            }

            LastOperationCard {
                Layout.fillWidth: true
                visible: screen.model.lastOperation.isPresent
                texts: screen.model.lastOperation
                canUndo: screen.model.history.canUndoCompleted
                onUndo: screen.model.history.considerCompleted()
            }
        }
    }

    BottomBar {
        id: bar

        anchors.bottom: parent.bottom
        width: parent.width

        ColumnLayout {
            Layout.fillWidth: true
            spacing: Theme.s4

            Repeater {
                model: [
                    { symbol: "checkmark.shield.fill", key: "sources.safetyReassurance" },
                    { symbol: "lock.fill", key: "sources.privacyReassurance" }
                ]

                RowLayout {
                    id: reassurance

                    required property var modelData

                    spacing: Theme.s8

                    Symbol {
                        name: reassurance.modelData.symbol
                        size: 14
                        color: Theme.green
                    }

                    CaptionText {
                        Layout.fillWidth: true
                        text: qsTrId(reassurance.modelData.key)
                        horizontalAlignment: Text.AlignLeft
                        elide: Text.ElideRight
                    }
                }
            }
        }

        PrimaryButton {
            text: qsTrId("sources.scanMedia")
            symbol: "arrow.right"
            trailingSymbol: true
            enabled: screen.model.canScan
            missing: screen.model.missing
            onClicked: screen.model.scan()
        }
    }

    UndoQuestion {
        id: undoQuestion

        forecast: screen.model.history.forecast
        onConfirmed: screen.model.history.confirmUndo()
        onCancelled: screen.model.history.keep()
    }

    Connections {
        target: screen.model.history

        function onAlertChanged() {
            undoQuestion.ask(screen.model.history.showUndoAlert);
        }
    }
}
