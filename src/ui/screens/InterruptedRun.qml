import QtQuick
import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// A run that was cut off or cancelled: what it has done, and what the user can do about it.
Rectangle {
    id: notice

    required property RunHistoryModel history

    implicitHeight: row.implicitHeight + 2 * Theme.s8
    radius: Theme.radiusControl
    color: Theme.soft(Theme.orange)
    Accessible.role: Accessible.AlertMessage
    Accessible.name: notice.history.interrupted

    RowLayout {
        id: row

        anchors.fill: parent
        anchors.leftMargin: Theme.s12
        anchors.rightMargin: Theme.s8
        spacing: Theme.s8

        Symbol {
            name: "exclamationmark.triangle.fill"
            size: 16
            color: Theme.orange
        }

        RoleText {
            objectName: "interrupted"
            Layout.fillWidth: true
            text: notice.history.interrupted
            font.pixelSize: Theme.tableSize
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }

        LinkButton {
            objectName: "undoInterrupted"
            text: qsTrId("report.undo")
            onClicked: notice.history.considerInterrupted()
        }

        IconButton {
            objectName: "dismissInterrupted"
            symbol: "xmark"
            text: "Dismiss"
            onClicked: notice.history.dismissInterrupted()
        }
    }
}
