import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// Chooses whether the originals stay where they are.
ColumnLayout {
    id: section

    required property OrganizationModel model

    spacing: Theme.s8

    SectionHeading {
        Layout.fillWidth: true
        text: qsTrId("org.operationMode")
    }

    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.s12

        ChoiceCard {
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.preferredWidth: 1
            text: qsTrId("org.copyTitle")
            detail: qsTrId("org.copyDescription")
            symbol: "doc.on.doc"
            checked: !section.model.isMove
            onClicked: section.model.isMove = false
        }

        ChoiceCard {
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.preferredWidth: 1
            text: qsTrId("org.moveTitle")
            detail: qsTrId("org.moveDescription")
            symbol: "arrow.right.doc.on.clipboard"
            checked: section.model.isMove
            onClicked: section.model.isMove = true
        }
    }
}
