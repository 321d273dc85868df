import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// The place of the archive, and whether there is enough space.
ColumnLayout {
    id: section

    required property OrganizationModel model

    spacing: Theme.s8

    SectionHeading {
        Layout.fillWidth: true
        text: qsTrId("org.destination")
    }

    Card {
        Layout.fillWidth: true

        contentItem: ColumnLayout {
            spacing: Theme.s12

            PlainButton {
                Layout.alignment: Qt.AlignHCenter
                Layout.maximumWidth: parent.width
                Layout.topMargin: Theme.s8
                Layout.bottomMargin: Theme.s8
                visible: !section.model.destination.isChosen
                text: qsTrId("org.chooseDestination")
                symbol: "folder.badge.plus"
                onClicked: section.model.chooseDestination()
            }

            RowLayout {
                visible: section.model.destination.isChosen
                spacing: Theme.s12

                Rectangle {
                    Layout.preferredWidth: 36
                    Layout.preferredHeight: 36
                    radius: Theme.radiusControl
                    color: Theme.soft(Theme.tint(Theme.accent))

                    Symbol {
                        anchors.centerIn: parent
                        name: section.model.destination.symbol
                        color: Theme.tint(Theme.accent)
                    }
                }

                ColumnLayout {
                    Layout.fillWidth: true
                    spacing: 2

                    BodyText {
                        Layout.fillWidth: true
                        text: section.model.destination.name
                        font.weight: Font.DemiBold
                        wrapMode: Text.NoWrap
                        maximumLineCount: 1
                        elide: Text.ElideMiddle
                    }

                    MonoText {
                        Layout.fillWidth: true
                        text: section.model.destination.path
                        maximumLineCount: 1
                    }
                }

                PlainButton {
                    text: qsTrId("org.change")
                    onClicked: section.model.chooseDestination()
                }
            }

            CapacityBar {
                Layout.fillWidth: true
                visible: section.model.destination.isChosen && section.model.destination.hasCapacity
                used: section.model.destination.usedShare
                added: section.model.destination.addedShare
                Accessible.name: section.model.destination.capacityLine
            }

            RowLayout {
                visible: section.model.destination.isChosen
                spacing: Theme.s8

                Symbol {
                    Layout.alignment: Qt.AlignTop
                    visible: section.model.destination.lacksRoom
                    name: "exclamationmark.triangle.fill"
                    size: 16
                    color: Theme.red
                }

                BodyText {
                    Layout.fillWidth: true
                    text: section.model.destination.capacityLine
                    color: section.model.destination.lacksRoom ? Theme.red : Theme.textSecondary
                    font.pixelSize: Theme.tableSize
                }
            }
        }
    }
}
