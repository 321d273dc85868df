import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// What the last run did, in one line and six figures.
Card {
    id: card

    required property var texts
    property bool canUndo: false
    signal undo

    contentItem: ColumnLayout {
        spacing: Theme.s12

        ColumnLayout {
            Layout.fillWidth: true
            spacing: Theme.s4

            RowLayout {
                Layout.fillWidth: true
                spacing: Theme.s8

                Symbol {
                    name: "clock.arrow.circlepath"
                    size: 18
                    color: Theme.textSecondary
                }

                BodyText {
                    Layout.fillWidth: true
                    text: qsTrId("last.title")
                    font.weight: Font.DemiBold
                    wrapMode: Text.NoWrap // otherwise it would wrap before the row has a width, and stay tall
                    elide: Text.ElideRight
                    horizontalAlignment: Text.AlignLeft
                    Accessible.role: Accessible.Heading
                }

                LinkButton {
                    objectName: "undoCompleted"
                    visible: card.canUndo
                    text: qsTrId("report.undo")
                    onClicked: card.undo()
                }
            }

            CaptionText {
                Layout.fillWidth: true
                text: card.texts.line
                font.pixelSize: Theme.scaled(10)
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignLeft
            }
        }

        RowLayout {
            spacing: Theme.s8

            LastOperationFigure {
                value: card.texts.files
                caption: qsTrId("last.filesProcessed")
                tint: "blue"
            }

            LastOperationFigure {
                value: card.texts.transferred
                caption: qsTrId("last.dataTransferred")
                tint: "cyan"
            }

            LastOperationFigure {
                value: card.texts.verified
                caption: qsTrId("last.verified")
                tint: "green"
            }

            LastOperationFigure {
                value: card.texts.skipped
                caption: qsTrId("last.skipped")
                tint: "orange"
            }

            LastOperationFigure {
                value: card.texts.errors
                caption: qsTrId("last.errors")
                tint: card.texts.hasErrors ? "red" : "grey"
            }

            LastOperationFigure {
                value: card.texts.duration
                caption: qsTrId("last.duration")
                tint: "purple"
            }
        }
    }
}
