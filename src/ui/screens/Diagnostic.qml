import QtQuick
import QtQuick.Layouts
import Lumeo.Kit

/// One line about something odd in a file.
RowLayout {
    id: line

    property string symbol: "exclamationmark.triangle.fill"
    property string tint: "orange"
    property alias text: label.text

    spacing: Theme.s8

    Symbol {
        Layout.alignment: Qt.AlignTop
        name: line.symbol
        size: 14
        color: Theme.tint(line.tint)
    }

    RoleText {
        id: label

        Layout.fillWidth: true
        color: line.tint === "red" ? Theme.red : Theme.textPrimary
        font.pixelSize: Theme.tableSize
        wrapMode: Text.Wrap
    }
}
