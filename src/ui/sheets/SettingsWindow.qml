pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// The preferences, in a small separate window.
Window {
    id: settings

    required property SettingsModel model

    title: "LUMEO. Settings"
    width: 480
    height: 320
    minimumWidth: width
    maximumWidth: width
    minimumHeight: height
    maximumHeight: height
    color: Theme.ground
    flags: Qt.Dialog

    Shortcut {
        sequences: ["Escape", "Ctrl+W"]
        onActivated: settings.close()
    }

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: 20
        spacing: Theme.s16

        SegmentedPicker {
            id: tabs

            Layout.alignment: Qt.AlignHCenter
            label: "Settings"
            model: ["General", "Privacy"]
            symbols: ["gearshape", "hand.raised.fill"]
            onActivated: index => currentIndex = index
        }

        StackLayout {
            Layout.fillWidth: true
            Layout.fillHeight: true
            currentIndex: tabs.currentIndex

            GeneralSettings {
                model: settings.model
            }
            PrivacySettings {
            }
        }
    }
}
