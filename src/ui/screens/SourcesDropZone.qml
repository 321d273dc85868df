import QtQuick
import QtQuick.Layouts
import QtQuick.Shapes
import Lumeo.Kit

/// Where folders are dropped, with the button for those who would rather choose them. Steps back once
/// there is something to look at below it.
Item {
    id: zone

    property bool isTargeted: false
    property bool isCompact: false
    signal choose

    readonly property color lineColor: isTargeted ? Theme.blue : Theme.textTertiary

    implicitHeight: content.implicitHeight + 2 * (isCompact ? Theme.s16 : Theme.s32)

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusSheet
        color: zone.isTargeted ? Theme.soft(Theme.blue) : Theme.sunken
    }

    Shape {
        anchors.fill: parent

        ShapePath {
            id: line

            readonly property real inset: strokeWidth / 2
            readonly property real right: zone.width - inset
            readonly property real bottom: zone.height - inset
            readonly property real radius: Theme.radiusSheet

            strokeColor: zone.lineColor
            strokeWidth: zone.isTargeted ? 2 : 1
            strokeStyle: ShapePath.DashLine
            dashPattern: [6, 4]
            fillColor: "transparent"
            startX: inset + radius
            startY: inset

            PathLine { x: line.right - line.radius; y: line.inset }
            PathArc { x: line.right; y: line.inset + line.radius; radiusX: line.radius; radiusY: line.radius }
            PathLine { x: line.right; y: line.bottom - line.radius }
            PathArc { x: line.right - line.radius; y: line.bottom; radiusX: line.radius; radiusY: line.radius }
            PathLine { x: line.inset + line.radius; y: line.bottom }
            PathArc { x: line.inset; y: line.bottom - line.radius; radiusX: line.radius; radiusY: line.radius }
            PathLine { x: line.inset; y: line.inset + line.radius }
            PathArc { x: line.inset + line.radius; y: line.inset; radiusX: line.radius; radiusY: line.radius }
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
