pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// The chosen sources, one card for each.
ColumnLayout {
    id: list

    required property SourcesModel model

    spacing: Theme.s8

    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.s8

        BodyText {
            text: qsTrId("sources.selectedSources")
            font.pixelSize: Theme.subtitleSize
            font.weight: Font.DemiBold
            Accessible.role: Accessible.Heading
        }

        Badge {
            text: list.model.countText
        }

        Item {
            Layout.fillWidth: true
        }

        LinkButton {
            text: qsTrId("sources.clearAll")
            onClicked: list.model.clear()
        }
    }

    Repeater {
        model: list.model.cards

        SourceCard {
            required property int index

            Layout.fillWidth: true
            onRemove: list.model.remove(index)
        }
    }

    LinkButton {
        text: qsTrId("sources.addAnotherSource")
        symbol: "plus"
        onClicked: list.model.chooseFolders()
    }
}
