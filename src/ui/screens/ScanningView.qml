import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// The running scan: its counters, and the name of the current file.
Item {
    id: view

    required property ScanModel model

    ColumnLayout {
        anchors.centerIn: parent
        anchors.verticalCenterOffset: -bar.height / 2
        width: Math.min(Theme.contentWidth, view.width - 2 * Theme.s32)
        spacing: Theme.s24

        ColumnLayout {
            spacing: Theme.s8

            Symbol {
                Layout.alignment: Qt.AlignHCenter
                name: view.model.counters.isPaused ? "pause.fill" : "magnifyingglass"
                size: 40
                color: view.model.counters.isPaused ? Theme.orange : Theme.cyan
            }

            TitleText {
                Layout.fillWidth: true
                text: view.model.counters.isPaused ? qsTrId("scan.pausedTitle") : qsTrId("scan.title")
                horizontalAlignment: Text.AlignHCenter
            }

            SubtitleText {
                Layout.fillWidth: true
                text: qsTrId("scan.subtitle")
                horizontalAlignment: Text.AlignHCenter
            }
        }

        GridLayout {
            Layout.fillWidth: true
            columns: 4
            columnSpacing: Theme.s16
            rowSpacing: Theme.s16

            ScanCounter {
                symbol: "photo.fill"
                value: view.model.counters.photos
                caption: qsTrId("scan.photos")
                tint: "blue"
            }

            ScanCounter {
                symbol: "film.fill"
                value: view.model.counters.videos
                caption: qsTrId("scan.videos")
                tint: "purple"
            }

            ScanCounter {
                symbol: "camera.fill"
                value: view.model.counters.raw
                caption: qsTrId("scan.raw")
                tint: "orange"
            }

            ScanCounter {
                symbol: "checkmark.circle.fill"
                value: view.model.counters.supported
                caption: qsTrId("scan.totalSupported")
                tint: "green"
            }

            ScanCounter {
                symbol: "doc.text.magnifyingglass"
                value: view.model.counters.inspected
                caption: qsTrId("scan.filesInspected")
                tint: "cyan"
            }

            ScanCounter {
                symbol: "questionmark.circle"
                value: view.model.counters.unsupported
                caption: qsTrId("scan.unsupported")
                tint: "grey"
            }

            ScanCounter {
                symbol: "exclamationmark.triangle.fill"
                value: view.model.counters.errors
                caption: qsTrId("scan.errors")
                tint: view.model.counters.hasErrors ? "red" : "grey"
            }

            ScanCounter {
                symbol: "timer"
                value: view.model.counters.duration
                caption: qsTrId("scan.duration")
                tint: "indigo"
            }
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: Theme.s12

            ProgressBar {
                Layout.fillWidth: true
                tint: view.model.counters.isPaused ? "orange" : "cyan"
                indeterminate: !view.model.counters.isPaused
                value: 0
                Accessible.name: qsTrId("scan.title")
            }

            // The line has a fixed height, so that nothing moves while there is no name.
            MonoText {
                Layout.fillWidth: true
                Layout.preferredHeight: 18
                text: view.model.counters.currentName
                maximumLineCount: 1
                horizontalAlignment: Text.AlignHCenter
                // The name changes twenty times a second, which is too often to be read aloud.
                Accessible.ignored: true
            }
        }
    }

    BottomBar {
        id: bar

        anchors.bottom: parent.bottom
        width: parent.width

        PlainButton {
            text: qsTrId("scan.cancel")
            symbol: "xmark"
            onClicked: view.model.cancel()
        }

        Item {
            Layout.fillWidth: true
        }

        PrimaryButton {
            text: view.model.counters.isPaused ? qsTrId("scan.resume") : qsTrId("scan.pause")
            symbol: view.model.counters.isPaused ? "play.fill" : "pause.fill"
            onClicked: {
                if (view.model.counters.isPaused)
                    view.model.resume();
                else
                    view.model.pause();
            }
        }
    }
}
