import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T

/// One line of a menu. `checked` shows a checkmark beside it.
T.MenuItem {
    id: item

    property string symbol: checked ? "checkmark" : ""

    function activate() {
        menu.dismiss();
        triggered();
    }

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Theme.rowHeight
    leftPadding: Theme.s8
    rightPadding: Theme.s12
    font.pixelSize: Theme.bodySize
    opacity: enabled ? 1 : 0.45
    Accessible.role: Accessible.MenuItem
    Accessible.name: text
    Accessible.checked: checked
    Keys.onReturnPressed: item.activate()
    Keys.onEnterPressed: item.activate()

    HoverHandler {
        cursorShape: Qt.PointingHandCursor
    }

    contentItem: RowLayout {
        spacing: Theme.s8

        Item {
            implicitWidth: 16
            implicitHeight: 16

            Symbol {
                anchors.centerIn: parent
                name: item.symbol
                size: 16
                color: Theme.tint(Theme.accent)
            }
        }

        Text {
            Layout.fillWidth: true
            text: item.text
            textFormat: Text.PlainText
            color: Theme.textPrimary
            font: item.font
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignLeft
        }
    }

    background: Rectangle {
        radius: 6
        color: item.highlighted ? Theme.press : "transparent"
    }
}
