pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Lumeo.Kit

/// The privacy promise, in short.
ColumnLayout {
    spacing: Theme.s8

    RowLayout {
        spacing: Theme.s12

        Symbol {
            name: "lock.shield.fill"
            size: 32
            color: Theme.green
        }
        ColumnLayout {
            spacing: 2

            BodyText {
                Layout.fillWidth: true
                text: "100% Local & Private"
                font.weight: Font.DemiBold
            }
            BodyText {
                Layout.fillWidth: true
                text: "LUMEO. never sends your data anywhere."
                color: Theme.textSecondary
            }
        }
    }

    Repeater {
        model: [
            {
                symbol: "desktopcomputer",
                statement: "Media processing happens entirely on this computer."
            },
            {
                symbol: "icloud.slash",
                statement: "No media or metadata leaves your device."
            },
            {
                symbol: "eye.slash.fill",
                statement: "Zero analytics, telemetry, or third-party trackers."
            },
            {
                symbol: "person.crop.circle.badge.xmark",
                statement: "No account or internet connection required."
            }
        ]

        RowLayout {
            id: row

            required property var modelData

            spacing: Theme.s12

            Symbol {
                name: row.modelData.symbol
                size: 18
                color: Theme.textSecondary
            }
            BodyText {
                Layout.fillWidth: true
                text: row.modelData.statement
            }
        }
    }

    Item {
        Layout.fillHeight: true
    }
}
