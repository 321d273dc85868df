pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Lumeo.Kit

/// The number of files of each year in the archive.
Card {
    id: timeline

    property var years: []

    contentItem: ColumnLayout {
        spacing: Theme.s12

        SectionHeading {
            text: qsTrId("report.timeline")
        }

        Repeater {
            model: timeline.years

            RowLayout {
                id: year

                required property var modelData

                Layout.fillWidth: true
                spacing: Theme.s12
                Accessible.role: Accessible.StaticText
                Accessible.name: modelData.label + ": " + modelData.count

                RoleText {
                    Layout.preferredWidth: 68
                    text: year.modelData.label
                    font.weight: Font.Medium
                    Accessible.ignored: true
                }

                Item {
                    Layout.fillWidth: true
                    implicitHeight: 10

                    Rectangle {
                        anchors.left: parent.left
                        width: Math.max(height, parent.width * year.modelData.share)
                        height: parent.height
                        radius: height / 2
                        color: Theme.tint(Theme.accent)
                        opacity: 0.85
                    }
                }

                CaptionText {
                    Layout.preferredWidth: 90
                    text: year.modelData.count
                    horizontalAlignment: Text.AlignRight
                    Accessible.ignored: true
                }
            }
        }
    }
}
