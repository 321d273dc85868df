import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// What is to be known before the start: a refusal, a cancelled run, planning under way, busy disks.
ColumnLayout {
    id: notices

    required property PreviewModel model

    spacing: 0

    Banner {
        objectName: "refusal"
        Layout.fillWidth: true
        Layout.leftMargin: Theme.s24
        Layout.rightMargin: Theme.s24
        Layout.topMargin: Theme.s8
        visible: text !== ""
        symbol: "xmark.circle.fill"
        tint: "red"
        text: notices.model.refusal
    }

    Banner {
        objectName: "cancellation"
        Layout.fillWidth: true
        Layout.leftMargin: Theme.s24
        Layout.rightMargin: Theme.s24
        Layout.topMargin: Theme.s8
        visible: text !== ""
        symbol: "info.circle.fill"
        tint: "blue"
        text: notices.model.cancellation
    }

    RowLayout {
        objectName: "planning"
        Layout.fillWidth: true
        Layout.leftMargin: Theme.s24
        Layout.rightMargin: Theme.s24
        Layout.topMargin: Theme.s8
        visible: notices.model.isPlanning
        spacing: Theme.s12

        CaptionText {
            text: notices.model.planningText
        }

        ProgressBar {
            Layout.fillWidth: true
            value: notices.model.planningFraction
            indeterminate: value === 0
        }

        LinkButton {
            text: qsTrId("preview.cancel")
            onClicked: notices.model.cancelPlanning()
        }
    }

    StorageActivityBanner {
        Layout.fillWidth: true
        Layout.leftMargin: Theme.s24
        Layout.rightMargin: Theme.s24
        Layout.topMargin: Theme.s8
        Layout.bottomMargin: Theme.s8
    }
}
