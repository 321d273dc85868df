import QtQuick
import QtQuick.Layouts
import Lumeo.Kit

/// A field of an item with its name. A path gets a separate line.
GridLayout {
    id: row

    property string label
    property string value
    property bool isPath: false

    columns: isPath ? 1 : 2
    columnSpacing: Theme.s8
    rowSpacing: 2
    Accessible.role: Accessible.StaticText
    Accessible.name: label + ": " + value

    CaptionText {
        Layout.preferredWidth: 116
        Layout.alignment: Qt.AlignTop
        text: row.label
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }

    RoleText {
        Layout.fillWidth: true
        text: row.value
        color: row.isPath ? Theme.textSecondary : Theme.textPrimary
        font.family: row.isPath ? Theme.mono : Application.font.family
        font.pixelSize: row.isPath ? Theme.captionSize : Theme.tableSize
        wrapMode: row.isPath ? Text.WrapAnywhere : Text.Wrap
        Accessible.ignored: true
    }
}
