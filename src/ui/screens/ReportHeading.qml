import QtQuick
import QtQuick.Layouts
import Lumeo.Kit

/// Shows how the run ended.
Item {
    id: heading

    property bool hasFailures: false
    readonly property color tint: hasFailures ? Theme.orange : Theme.green

    implicitHeight: row.implicitHeight

    RowLayout {
        id: row

        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(implicitWidth, parent.width)
        spacing: Theme.s16

        Rectangle {
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

        ColumnLayout {
            spacing: Theme.s4

            TitleText {
                Layout.fillWidth: true
                text: qsTrId("report.title")
            }

            SubtitleText {
                Layout.fillWidth: true
                text: qsTrId("report.subtitle")
                horizontalAlignment: Text.AlignLeft
            }
        }
    }
}
