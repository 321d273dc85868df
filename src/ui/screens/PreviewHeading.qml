import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// What the list is, how many files it is about, and what narrows it.
ColumnLayout {
    id: heading

    required property PreviewModel model
    default property alias search: place.data

    spacing: Theme.s12

    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.s16

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 2

            TitleText {
                Layout.fillWidth: true
                text: qsTrId("preview.title")
                wrapMode: Text.NoWrap
                elide: Text.ElideRight
            }

            SubtitleText {
                Layout.fillWidth: true
                text: qsTrId("preview.subtitle")
                horizontalAlignment: Text.AlignLeft
            }
        }

        Row {
            Layout.alignment: Qt.AlignTop
            Layout.topMargin: Theme.s4
            spacing: Theme.s8

            Repeater {
                model: heading.model.chips

                Chip {
                    required property var modelData

                    text: modelData.text
                    tint: modelData.tint
                }
            }
        }
    }

    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.s12

        Item {
            id: place

            Layout.alignment: Qt.AlignTop
            implicitWidth: childrenRect.width
            implicitHeight: childrenRect.height
        }

        Flow {
            Layout.fillWidth: true
            Layout.topMargin: 2
            spacing: Theme.s8

            Repeater {
                model: heading.model.filters

                FilterPill {
                    required property var modelData

                    objectName: "filter-" + modelData.name
                    text: modelData.text
                    count: modelData.count
                    checked: heading.model.selectedFilter === modelData.name
                    onClicked: heading.model.selectedFilter = modelData.name
                }
            }
        }

        CaptionText {
            Layout.alignment: Qt.AlignTop
            Layout.topMargin: Theme.s8
            visible: text !== ""
            text: heading.model.listed
        }
    }
}
