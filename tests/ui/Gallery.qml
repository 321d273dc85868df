import QtQuick
import Lumeo.Kit

/// The controls that the tests work. `used` tells which one was, by its name.
Rectangle {
    id: gallery

    signal used(string name)
    readonly property var theme: Theme

    implicitWidth: 1000
    implicitHeight: 600
    color: Theme.ground

    Column {
        anchors.fill: parent
        anchors.margins: Theme.s32
        spacing: Theme.s16

        PrimaryButton {
            text: "Primary"
            onClicked: gallery.used(text)
        }
        PrimaryButton {
            text: "Blocked"
            enabled: false
            missing: "Something is missing."
        }
        PlainButton {
            text: "Plain"
            onClicked: gallery.used(text)
        }
        DestructiveButton {
            text: "Destructive"
            onClicked: gallery.used(text)
        }
        LinkButton {
            text: "Link"
            onClicked: gallery.used(text)
        }
        IconButton {
            text: "Icon"
            symbol: "info.circle.fill"
            onClicked: gallery.used(text)
        }
        PlainButton {
            text: "Opens a sheet"
            onClicked: sheet.open()
        }
        PlainButton {
            text: "Opens an alert"
            onClicked: alert.open()
        }
        Switch {
            text: "Switch"
            onToggled: gallery.used(text)
        }
        MenuPicker {
            label: "Profile"
            model: ["Automatic", "Careful", "Fast"]
            onActivated: index => gallery.used(model[index])
        }
        SegmentedPicker {
            label: "Appearance"
            model: ["Light", "Dark"]
            onActivated: index => gallery.used(model[index])
        }

        Column {
            width: parent.width

            RadioRow {
                text: "By year"
                checked: true
                onClicked: gallery.used(text)
            }
            RadioRow {
                text: "By day"
                onClicked: gallery.used(text)
            }
        }
    }

    Sheet {
        id: sheet

        title: "Sheet"

        BodyText {
            text: "Something to read"
        }
    }

    Alert {
        id: alert

        title: "Alert"
        message: "Do it?"
        confirmText: "Yes"
        cancelText: "No"
        destructive: true
        onConfirmed: gallery.used(confirmText)
        onCancelled: gallery.used(cancelText)
    }
}
