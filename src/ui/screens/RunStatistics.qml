import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// The statistics of a run in four lines.
Card {
    id: statistics

    required property ReportModel model

    component Line: RowLayout {
        property string label
        property string value

        Layout.fillWidth: true
        spacing: Theme.s12
        Accessible.role: Accessible.StaticText
        Accessible.name: label + ": " + value

        BodyText {
            Layout.fillWidth: true
            text: parent.label
            color: Theme.textSecondary
            Accessible.ignored: true
        }

        RoleText {
            text: parent.value
            font.weight: Font.Medium
            Accessible.ignored: true
        }
    }

    contentItem: ColumnLayout {
        spacing: Theme.s12

        SectionHeading {
            text: qsTrId("report.stats")
        }

        Line {
            label: qsTrId("report.duration")
            value: statistics.model.figures.duration
        }

        Line {
            label: qsTrId("report.mode")
            value: statistics.model.figures.mode
        }

        Line {
            label: qsTrId("report.photosVsVideos")
            value: statistics.model.figures.photosVsVideos
        }

        Line {
            label: qsTrId("report.unknownDates")
            value: statistics.model.figures.unknownDates
        }
    }
}
