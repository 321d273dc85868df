import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// The choices that a new archive starts with, and how the program looks.
ColumnLayout {
    id: general

    required property SettingsModel model

    spacing: Theme.s12

    GridLayout {
        Layout.fillWidth: true
        columns: 2
        columnSpacing: Theme.s12
        rowSpacing: Theme.s12

        BodyText {
            Layout.fillWidth: true
            text: "Appearance:"
        }
        MenuPicker {
            Layout.alignment: Qt.AlignRight
            label: "Appearance"
            model: ["Light", "Dark"]
            currentIndex: general.model.appearance
            onActivated: index => general.model.appearance = index
        }

        BodyText {
            Layout.fillWidth: true
            text: "Default Action:"
        }
        MenuPicker {
            Layout.alignment: Qt.AlignRight
            label: "Default Action"
            model: ["Copy (Recommended)", "Move"]
            currentIndex: general.model.defaultOperation
            onActivated: index => general.model.defaultOperation = index
        }

        Switch {
            Layout.columnSpan: 2
            Layout.fillWidth: true
            text: "Verify file integrity after copy (SHA-256)"
            checked: general.model.verifyTransfers
            onToggled: general.model.verifyTransfers = checked
        }

        Switch {
            Layout.columnSpan: 2
            Layout.fillWidth: true
            text: "Keep a list of checksums in the archive (SHA256SUMS)"
            checked: general.model.listsChecksums
            onToggled: general.model.listsChecksums = checked
        }

        BodyText {
            Layout.fillWidth: true
            text: "Performance Profile:"
        }
        MenuPicker {
            Layout.alignment: Qt.AlignRight
            label: "Performance Profile"
            model: ["Auto (Recommended)", "Conservative (External HDD)", "Fast SSD"]
            currentIndex: general.model.performanceProfile
            onActivated: index => general.model.performanceProfile = index
        }
    }

    Item {
        Layout.fillHeight: true
    }
}
