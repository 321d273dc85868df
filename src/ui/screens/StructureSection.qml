pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// The folders of the archive: a preset, or the user's own pattern.
ColumnLayout {
    id: section

    required property OrganizationModel model

    readonly property var presetKeys: [
        "org.preset.yearMonth", "org.preset.yearOnly", "org.preset.exactDate", "org.preset.custom"
    ]

    spacing: Theme.s8

    SectionHeading {
        Layout.fillWidth: true
        text: qsTrId("org.folderStructure")
    }

    Card {
        Layout.fillWidth: true
        padding: Theme.s8

        contentItem: ColumnLayout {
            spacing: 0

            ColumnLayout {
                Layout.fillWidth: true
                spacing: Theme.s4
                Accessible.role: Accessible.Grouping
                Accessible.name: qsTrId("org.folderStructure")

                Repeater {
                    model: section.model.presetExamples

                    RadioRow {
                        required property int index
                        required property string modelData

                        Layout.fillWidth: true
                        text: qsTrId(section.presetKeys[index])
                        detail: modelData
                        monospaced: index < 3
                        checked: section.model.preset === index
                        onClicked: section.model.preset = index
                    }
                }
            }

            PatternEditor {
                Layout.fillWidth: true
                Layout.margins: Theme.s12
                visible: section.model.isCustom
                model: section.model
            }
        }
    }
}
