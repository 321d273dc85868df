import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// The figures of the catalogue: the kinds of media in large tiles, and what is unusual below them.
ColumnLayout {
    id: tiles

    required property ScanModel model

    spacing: Theme.s16

    GridLayout {
        Layout.fillWidth: true
        columns: 3
        columnSpacing: Theme.s16

        FigureTile {
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            symbol: "photo.fill"
            value: tiles.model.findings.photos
            title: qsTrId("scan.photos")
            caption: "Standard images"
            tint: "blue"
            share: tiles.model.findings.photosShare
        }

        FigureTile {
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            symbol: "film.fill"
            value: tiles.model.findings.videos
            title: qsTrId("scan.videos")
            caption: "Movies & clips"
            tint: "purple"
            share: tiles.model.findings.videosShare
        }

        FigureTile {
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            symbol: "camera.fill"
            value: tiles.model.findings.raw
            title: qsTrId("scan.raw")
            caption: "Camera sensor originals"
            tint: "orange"
            share: tiles.model.findings.rawShare
        }
    }

    GridLayout {
        Layout.fillWidth: true
        columns: 4
        columnSpacing: Theme.s16

        ScanCounter {
            symbol: "doc.on.doc.fill"
            value: tiles.model.findings.duplicates
            caption: qsTrId("results.exactDuplicates")
            detail: qsTrId("results.exactDuplicatesSubtitle")
            tint: "indigo"
            action: tiles.model.findings.isAnalyzed ? "" : "Analyze"
            isBusy: tiles.model.isAnalyzing
            onActed: tiles.model.analyzeDuplicates()
        }

        ScanCounter {
            symbol: "calendar.badge.exclamationmark"
            value: tiles.model.findings.missingDates
            caption: qsTrId("results.missingDate")
            detail: qsTrId("results.missingDateSubtitle")
            tint: "orange"
        }

        ScanCounter {
            symbol: "exclamationmark.triangle.fill"
            value: tiles.model.findings.warnings
            caption: qsTrId("results.warnings")
            detail: qsTrId("results.warningsSubtitle")
            tint: "yellow"
        }

        ScanCounter {
            symbol: "internaldrive.fill"
            value: tiles.model.findings.totalSize
            caption: qsTrId("results.totalSize")
            tint: "cyan"
        }
    }
}
