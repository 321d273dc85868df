import QtQuick
import QtQuick.Layouts
import Lumeo.Kit

/// What happens to the user's files, and what never does.
Sheet {
    title: qsTrId("header.privacy")
    subtitle: qsTrId("privacy.subtitle")
    symbol: "lock.shield.fill"
    tint: "green"
    doneText: qsTrId("common.done")

    InfoRow {
        symbol: "desktopcomputer"
        tint: "green"
        title: qsTrId("privacy.local.title")
        text: qsTrId("privacy.local.description")
    }
    InfoRow {
        symbol: "icloud.slash"
        tint: "green"
        title: qsTrId("privacy.cloud.title")
        text: qsTrId("privacy.cloud.description")
    }
    InfoRow {
        symbol: "person.crop.circle.badge.xmark"
        tint: "green"
        title: qsTrId("privacy.account.title")
        text: qsTrId("privacy.account.description")
    }
    InfoRow {
        symbol: "eye.slash.fill"
        tint: "green"
        title: qsTrId("privacy.telemetry.title")
        text: qsTrId("privacy.telemetry.description")
    }
    InfoRow {
        symbol: "network.slash"
        tint: "green"
        title: qsTrId("privacy.offline.title")
        text: qsTrId("privacy.offline.description")
    }

    Rectangle {
        Layout.fillWidth: true
        implicitHeight: safety.implicitHeight + 2 * Theme.s16
        radius: Theme.radiusCard
        color: Theme.soft(Theme.green)

        ColumnLayout {
            id: safety

            anchors {
                left: parent.left
                right: parent.right
                verticalCenter: parent.verticalCenter
                margins: Theme.s16
            }
            spacing: Theme.s4

            SectionHeading {
                Layout.fillWidth: true
                text: qsTrId("privacy.safety.title")
            }
            BodyText {
                Layout.fillWidth: true
                text: qsTrId("privacy.safety.description")
                wrapMode: Text.Wrap
            }
        }
    }
}
