import QtQuick
import QtQuick.Layouts
import Lumeo.Kit

/// One chosen folder or drive.
Card {
    id: card

    required property string name
    required property string path
    required property string symbol
    required property bool isRemovable
    required property string capacityText
    required property real usedShare
    required property bool isGone ///< nothing is at its place any more
    signal remove

    padding: Theme.s12
    Accessible.name: name
    Accessible.description: isGone ? "Not found" : capacityText

    contentItem: RowLayout {
        spacing: Theme.s12

        Rectangle {
            Layout.preferredWidth: 46
            Layout.preferredHeight: 46
            radius: Theme.radiusCard
            color: Theme.soft(icon.color)

            Symbol {
                id: icon

                anchors.centerIn: parent
                name: card.symbol
                size: 24
                color: card.isGone ? Theme.red : card.isRemovable ? Theme.orange : Theme.blue
            }
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 2

            RowLayout {
                spacing: Theme.s8

                BodyText {
                    Layout.maximumWidth: Math.max(80, card.availableWidth - 340 - badge.implicitWidth)
                    text: card.name
                    font.weight: Font.DemiBold
                    wrapMode: Text.NoWrap
                    maximumLineCount: 1
                    elide: Text.ElideMiddle
                }

                Badge {
                    id: badge

                    visible: card.isRemovable
                    text: qsTrId("sources.externalDriveBadge")
                    tint: "orange"
                }
            }

            MonoText {
                Layout.fillWidth: true
                text: card.path
                maximumLineCount: 1
            }
        }

        ColumnLayout {
            Layout.preferredWidth: 200
            Layout.fillWidth: false
            visible: !card.isGone && card.capacityText !== ""
            spacing: Theme.s4

            CaptionText {
                Layout.fillWidth: true
                text: card.capacityText
                horizontalAlignment: Text.AlignRight
                elide: Text.ElideRight
            }

            CapacityBar {
                Layout.fillWidth: true
                visible: card.usedShare >= 0
                used: card.usedShare
                Accessible.name: card.capacityText
            }
        }

        Diagnostic {
            Layout.fillWidth: false
            visible: card.isGone
            tint: "red"
            text: "Not found"
        }

        IconButton {
            text: "Remove folder from scan list"
            symbol: "xmark.circle.fill"
            onClicked: card.remove()
        }
    }
}
