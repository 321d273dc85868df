pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// The title of the list, the number of its files, and the controls that narrow it.
GridLayout {
    id: heading

    required property PreviewModel model
    default property alias search: place.data

    columns: 2
    columnSpacing: Theme.s16
    rowSpacing: Theme.s4

    TitleText {
        Layout.fillWidth: true
        text: qsTrId("preview.title")
        wrapMode: Text.NoWrap
        elide: Text.ElideRight
    }

    Item {
        id: place

        Layout.alignment: Qt.AlignRight
        implicitWidth: childrenRect.width
        implicitHeight: childrenRect.height
    }

    BodyText {
        Layout.fillWidth: true
        text: qsTrId("preview.subtitle")
        color: Theme.textSecondary
    }

    Row {
        Layout.alignment: Qt.AlignRight
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

    RowLayout {
        Layout.columnSpan: 2
        Layout.fillWidth: true
        Layout.topMargin: Theme.s4
        spacing: Theme.s12

        FilterStrip {
            Layout.fillWidth: true
            Layout.leftMargin: -ringRoom
            model: heading.model
        }

        LinkButton {
            visible: !heading.model.isAnalyzed && !heading.model.isAnalyzing
            text: "Analyze"
            symbol: "doc.on.doc.fill"
            Accessible.description: qsTrId("results.analyzeDuplicates")
            onClicked: heading.model.analyzeDuplicates()
        }

        CaptionText {
            visible: text !== ""
            text: heading.model.listed
        }
    }
}
