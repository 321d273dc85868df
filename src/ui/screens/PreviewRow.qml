import QtQuick
import Lumeo.Kit

/// One item of the preview's table.
Item {
    id: row

    required property int index
    required property string fileName
    required property string symbol
    required property string date
    required property bool isDated
    required property string dateSource
    required property string confidence
    required property string confidenceTint
    required property string destination

    required property TableColumns columns
    required property bool isCurrent
    /// Called with the cell under the pointer and its text, if the text was cut. Called with null after that.
    required property var explain
    signal chosen

    width: columns.total
    height: Theme.rowHeight
    Accessible.role: Accessible.ListItem
    Accessible.name: `${fileName}, ${date}, ${confidence}, ${destination}`
    Accessible.focusable: true
    Accessible.selectable: true
    Accessible.selected: isCurrent
    Accessible.onPressAction: row.chosen()

    Rectangle {
        anchors.fill: parent
        anchors.bottomMargin: 1
        color: row.isCurrent ? Theme.soft(Theme.tint(Theme.accent)) : hover.hovered ? Theme.sunken : "transparent"
    }

    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: Theme.line
        opacity: 0.6
    }

    // One handler for all cells, because rows are created while the user scrolls.
    HoverHandler {
        id: hover

        readonly property Item place: hovered ? cells.childAt(point.position.x, 1) : null
        readonly property TableCell cell: place === first ? fileCell : place as TableCell
        readonly property PathCell path: place as PathCell
        readonly property Item cut: cell?.truncated ? cell : path?.truncated ? path : null

        onCutChanged: row.explain(cut, cell?.text ?? path?.text ?? "")
    }

    TapHandler {
        onTapped: row.chosen()
    }

    Row {
        id: cells

        height: parent.height

        Item {
            id: first

            width: row.columns.widths[0]
            height: parent.height

            Symbol {
                id: symbol

                anchors.left: parent.left
                anchors.leftMargin: Theme.s12
                anchors.verticalCenter: parent.verticalCenter
                name: row.symbol
                size: 16
                color: Theme.textSecondary
            }

            TableCell {
                id: fileCell

                anchors.left: symbol.right
                anchors.right: parent.right
                leftPadding: Theme.s8
                text: row.fileName
                elide: Text.ElideMiddle
            }
        }

        TableCell {
            width: row.columns.widths[1]
            text: row.date
            color: row.isDated ? Theme.textPrimary : Theme.yellow
        }

        TableCell {
            width: row.columns.widths[2]
            text: row.dateSource
            color: Theme.textSecondary
        }

        TableCell {
            width: row.columns.widths[3]
            text: row.confidence
            color: Theme.tint(row.confidenceTint)
            font.pixelSize: Theme.captionSize
            font.weight: Font.Medium
        }

        PathCell {
            width: row.columns.widths[4]
            height: parent.height
            text: row.destination
        }

        TableCell {
            width: row.columns.widths[5]
            text: qsTrId("preview.ready")
            color: Theme.green
        }
    }
}
