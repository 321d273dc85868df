import QtQuick
import QtQuick.Layouts
import Lumeo.Kit

/// How the run ended, at one look.
ColumnLayout {
    id: heading

    property bool hasFailures: false
    readonly property color tint: hasFailures ? Theme.orange : Theme.green

    spacing: Theme.s4

    Rectangle {
        Layout.alignment: Qt.AlignHCenter
        Layout.bottomMargin: Theme.s4
        implicitWidth: 56
        implicitHeight: 56
        radius: 28
        color: Theme.soft(heading.tint)

        Symbol {
            anchors.centerIn: parent
            name: heading.hasFailures ? "exclamationmark.triangle.fill" : "checkmark.circle.fill"
            size: 32
            color: heading.tint
        }
    }

    TitleText {
        Layout.fillWidth: true
        text: qsTrId("report.title")
        horizontalAlignment: Text.AlignHCenter
    }

    SubtitleText {
        Layout.fillWidth: true
        text: qsTrId("report.subtitle")
        horizontalAlignment: Text.AlignHCenter
    }
}
