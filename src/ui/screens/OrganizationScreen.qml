import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// The third step: the structure of the archive, and its place.
Item {
    id: screen

    required property OrganizationModel model

    Page {
        id: page

        anchors.top: parent.top
        anchors.bottom: bar.top
        width: parent.width
        contentHeight: column.height + 2 * Theme.s24

        ColumnLayout {
            id: column

            x: (page.width - width) / 2
            y: Math.max(Theme.s24, page.height * 0.05) // fixed, so nothing moves when a part unfolds
            width: Math.min(sections.columns > 1 ? 1040 : Theme.contentWidth, page.width - 2 * Theme.s32)
            spacing: Theme.s24

            ColumnLayout {
                spacing: Theme.s4

                TitleText {
                    Layout.fillWidth: true
                    text: qsTrId("org.title")
                    horizontalAlignment: Text.AlignHCenter
                }

                SubtitleText {
                    Layout.fillWidth: true
                    text: qsTrId("org.subtitle")
                    horizontalAlignment: Text.AlignHCenter
                }
            }

            GridLayout {
                id: sections

                Layout.fillWidth: true
                enabled: screen.model.canEdit
                columns: screen.width > 1000 ? 2 : 1
                columnSpacing: Theme.s24
                rowSpacing: Theme.s24

                StructureSection {
                    Layout.fillWidth: true
                    Layout.fillHeight: false
                    Layout.preferredWidth: 1
                    Layout.alignment: Qt.AlignTop
                    model: screen.model
                }

                ColumnLayout {
                    Layout.fillWidth: true
                    Layout.fillHeight: false
                    Layout.preferredWidth: 1
                    Layout.alignment: Qt.AlignTop
                    spacing: Theme.s24

                    DestinationSection {
                        Layout.fillWidth: true
                        model: screen.model
                    }

                    ModeSection {
                        Layout.fillWidth: true
                        model: screen.model
                    }

                    PolicySection {
                        Layout.fillWidth: true
                        model: screen.model
                    }
                }
            }
        }
    }

    BottomBar {
        id: bar

        anchors.bottom: parent.bottom
        width: parent.width

        PlainButton {
            text: qsTrId("org.back")
            symbol: "arrow.left"
            onClicked: screen.model.goBack()
        }

        Item {
            Layout.fillWidth: true
        }

        ProgressBar {
            id: planning

            // Most catalogues are planned before anybody could read a bar, so it appears late.
            Timer {
                running: screen.model.isPlanning
                interval: 400
                onRunningChanged: if (!running) planning.isWorthShowing = false
                onTriggered: planning.isWorthShowing = true
            }

            property bool isWorthShowing: false

            Layout.preferredWidth: 120
            visible: isWorthShowing && screen.model.isPlanning
            value: screen.model.plannedShare
            Accessible.name: qsTrId("org.previewChanges")
        }

        PrimaryButton {
            text: qsTrId("org.previewChanges")
            symbol: "arrow.right"
            trailingSymbol: true
            enabled: screen.model.canPreview
            missing: screen.model.canEdit ? "Choose a destination first." : "Files are being organized or taken back at this moment."
            onClicked: screen.model.previewChanges()
        }
    }
}
