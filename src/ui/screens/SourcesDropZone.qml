import QtQuick
import QtQuick.Layouts
import Lumeo.Kit

/// The place to drop folders, with a button for users who prefer to choose them. It becomes smaller when
/// there is something to show below it.
Item {
    id: zone

    property bool isTargeted: false
    property bool isCompact: false
    signal choose

    implicitHeight: content.implicitHeight + 2 * (isCompact ? Theme.s16 : Theme.s32)

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusSheet
        color: zone.isTargeted ? Theme.soft(Theme.blue) : Theme.sunken
    }

    Canvas {
        id: line

        readonly property color color: zone.isTargeted ? Theme.blue : Theme.textTertiary
        readonly property real thickness: zone.isTargeted ? 2 : 1

        anchors.fill: parent
        onColorChanged: requestPaint()
        onThicknessChanged: requestPaint()
        onPaint: {
            const context = getContext("2d");
            context.reset();
            context.strokeStyle = color;
            context.lineWidth = thickness;
            context.setLineDash([6, 4]);
            const inset = thickness / 2;
            context.roundedRect(inset, inset, width - thickness, height - thickness,
                                Theme.radiusSheet, Theme.radiusSheet);
            context.stroke();
        }
    }

    GridLayout {
        id: content

        anchors.verticalCenter: parent.verticalCenter
        x: Theme.s24
        width: parent.width - 2 * Theme.s24
        flow: zone.isCompact ? GridLayout.LeftToRight : GridLayout.TopToBottom
        columnSpacing: Theme.s16
        rowSpacing: Theme.s12

        Symbol {
            Layout.alignment: Qt.AlignCenter
            name: "folder.badge.plus"
            size: zone.isCompact ? 28 : 40
            color: zone.isTargeted ? Theme.blue : Theme.textSecondary
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 2

            BodyText {
                Layout.fillWidth: true
                text: qsTrId("sources.dropZoneTitle")
                font.pixelSize: zone.isCompact ? Theme.bodySize : Theme.subtitleSize
                font.weight: Font.DemiBold
                horizontalAlignment: zone.isCompact ? Text.AlignLeft : Text.AlignHCenter
            }

            BodyText {
                Layout.fillWidth: true
                text: qsTrId("sources.dropZoneSubtitle")
                color: Theme.textSecondary
                font.pixelSize: Theme.tableSize
                horizontalAlignment: zone.isCompact ? Text.AlignLeft : Text.AlignHCenter
            }
        }

        PlainButton {
            Layout.alignment: Qt.AlignCenter
            Layout.topMargin: zone.isCompact ? 0 : Theme.s4
            text: qsTrId("sources.chooseFolder")
            symbol: "folder.badge.plus"
            onClicked: zone.choose()
        }
    }
}
