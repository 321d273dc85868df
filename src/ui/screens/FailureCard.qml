pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// Why files failed: one row for each reason, with the number of files and their names.
Card {
    id: card

    required property var groups ///< {sentence, count, names}
    required property var lines ///< all of it: each sentence, and below it its files
    signal copied

    lineColor: Theme.red
    Accessible.name: qsTrId("report.errors")

    contentItem: ColumnLayout {
        spacing: Theme.s12

        SectionHeading {
            text: qsTrId("report.errors")
            color: Theme.red
        }

        Repeater {
            model: card.groups

            ColumnLayout {
                id: group

                required property var modelData

                Layout.fillWidth: true
                spacing: 2

                RowLayout {
                    Layout.fillWidth: true
                    spacing: Theme.s12

                    BodyText {
                        Layout.fillWidth: true
                        text: group.modelData.sentence
                        font.weight: Font.Medium
                        horizontalAlignment: Text.AlignLeft
                    }

                    BodyText {
                        text: group.modelData.count
                        color: Theme.textSecondary
                    }
                }

                CaptionText {
                    Layout.fillWidth: true
                    text: group.modelData.names
                    elide: Text.ElideRight
                    horizontalAlignment: Text.AlignLeft
                }
            }
        }

        Disclosure {
            Layout.fillWidth: true
            text: qsTrId("preview.filter.all")

            TextList {
                Layout.fillWidth: true
                lines: card.lines
                onCopied: card.copied()
            }
        }
    }
}
