import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// The current run.
Item {
    id: screen

    required property ProcessingModel model

    Page {
        anchors.top: parent.top
        anchors.bottom: bar.top
        width: parent.width
        contentHeight: Math.max(height, content.implicitHeight + 2 * Theme.s24)
        activeFocusOnTab: scrolls
        Accessible.name: qsTrId("proc.title")

        ColumnLayout {
            id: content

            anchors.centerIn: parent
            width: Math.min(Theme.contentWidth, parent.width - 2 * Theme.s32)
            spacing: Theme.s24

            ColumnLayout {
                Layout.fillWidth: true
                spacing: Theme.s4

                TitleText {
                    objectName: "title"
                    Layout.fillWidth: true
                    text: screen.model.figures.isPaused ? qsTrId("proc.pausedTitle") : qsTrId("proc.title")
                    horizontalAlignment: Text.AlignHCenter
                }

                SubtitleText {
                    Layout.fillWidth: true
                    text: screen.model.isMove ? qsTrId("proc.moveSubtitle") : qsTrId("proc.copySubtitle")
                    horizontalAlignment: Text.AlignHCenter
                }
            }

            Card {
                Layout.fillWidth: true
                padding: Theme.s24

                contentItem: ColumnLayout {
                    spacing: Theme.s12

                    RowLayout {
                        Layout.fillWidth: true
                        spacing: Theme.s16

                        RoleText {
                            Layout.fillWidth: true
                            Layout.alignment: Qt.AlignBaseline
                            text: screen.model.figures.processedOfTotal + " " + qsTrId("proc.processed")
                            font.pixelSize: Theme.subtitleSize
                            color: Theme.textSecondary
                            elide: Text.ElideRight
                        }

                        FigureText {
                            Layout.alignment: Qt.AlignBaseline
                            text: screen.model.figures.percentage
                            font.pixelSize: Theme.scaled(44)
                        }
                    }

                    ProgressBar {
                        objectName: "progress"
                        Layout.fillWidth: true
                        implicitHeight: 10
                        value: screen.model.figures.fraction
                        tint: screen.model.figures.isPaused ? "grey" : Theme.accent
                        Accessible.name: screen.model.figures.percentage
                    }

                    MonoText {
                        Layout.fillWidth: true
                        Layout.preferredHeight: 18
                        text: screen.model.figures.currentName
                    }
                }
            }

            GridLayout {
                Layout.fillWidth: true
                columns: 4
                columnSpacing: Theme.s16
                rowSpacing: Theme.s16

                RunTile {
                    symbol: "checkmark.shield.fill"
                    tint: "green"
                    value: screen.model.figures.verified
                    caption: qsTrId("proc.verified")
                }

                RunTile {
                    symbol: "arrowshape.turn.up.right.fill"
                    tint: "orange"
                    value: screen.model.figures.skipped
                    caption: qsTrId("proc.skipped")
                }

                RunTile {
                    symbol: "exclamationmark.triangle.fill"
                    tint: screen.model.figures.hasErrors ? "red" : "grey"
                    value: screen.model.figures.errors
                    caption: qsTrId("proc.errors")
                }

                RunTile {
                    symbol: "externaldrive.fill"
                    tint: "blue"
                    value: screen.model.figures.transferred
                    caption: qsTrId("proc.transferred")
                }

                RunTile {
                    symbol: "speedometer"
                    tint: "cyan"
                    value: screen.model.figures.speed
                    caption: qsTrId("proc.speed")
                }

                RunTile {
                    symbol: "doc.stack"
                    tint: "purple"
                    value: screen.model.figures.remaining
                    caption: qsTrId("proc.remaining")
                }

                RunTile {
                    symbol: "timer"
                    tint: "indigo"
                    value: screen.model.figures.elapsed
                    caption: qsTrId("proc.elapsed")
                }

                RunTile {
                    symbol: "hourglass"
                    tint: "indigo"
                    value: screen.model.figures.timeLeft
                    caption: qsTrId("proc.estTimeLeft")
                }
            }
        }
    }

    BottomBar {
        id: bar

        anchors.bottom: parent.bottom
        width: parent.width

        DestructiveButton {
            objectName: "cancel"
            text: qsTrId("proc.cancel")
            symbol: "xmark"
            enabled: screen.model.isRunning
            onClicked: screen.model.cancel()
        }

        Item {
            Layout.fillWidth: true
        }

        PrimaryButton {
            objectName: "pause"
            text: screen.model.figures.isPaused ? qsTrId("proc.resume") : qsTrId("proc.pause")
            symbol: screen.model.figures.isPaused ? "play.fill" : "pause.fill"
            enabled: screen.model.isRunning
            onClicked: screen.model.figures.isPaused ? screen.model.resume() : screen.model.pause()
        }
    }
}
