import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// What the user should know before the start: a refusal, a cancelled run, planning in progress.
ColumnLayout {
    id: notices

    required property PreviewModel model

    visible: model.refusal !== "" || model.cancellation !== "" || model.starting !== ""
             || model.analysis !== "" || model.isPlanning
    spacing: Theme.s8

    Banner {
        objectName: "refusal"
        Layout.fillWidth: true
        visible: text !== ""
        symbol: "xmark.circle.fill"
        tint: "red"
        text: notices.model.refusal
    }

    Banner {
        objectName: "cancellation"
        Layout.fillWidth: true
        visible: text !== ""
        symbol: "info.circle.fill"
        tint: "blue"
        text: notices.model.cancellation
    }

    Banner {
        objectName: "analysis"
        Layout.fillWidth: true
        visible: text !== ""
        symbol: "info.circle.fill"
        tint: "blue"
        text: notices.model.analysis
    }

    RowLayout {
        objectName: "starting"
        Layout.fillWidth: true
        visible: notices.model.starting !== ""
        spacing: Theme.s12

        CaptionText {
            text: notices.model.starting
        }

        ProgressBar {
            Layout.fillWidth: true
            indeterminate: true
            Accessible.name: notices.model.starting
        }

        LinkButton {
            text: qsTrId("preview.cancel")
            onClicked: notices.model.cancelStart()
        }
    }

    RowLayout {
        objectName: "planning"
        Layout.fillWidth: true
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
}
