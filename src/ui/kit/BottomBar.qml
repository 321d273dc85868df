import QtQuick
import QtQuick.Layouts

/// The buttons that lead on and back. Always visible on a screen.
Rectangle {
    default property alias content: row.data

    implicitHeight: 64
    color: Theme.surface
    Accessible.role: Accessible.ToolBar

    Rectangle {
        width: parent.width
        height: 1
        color: Theme.line
    }

    RowLayout {
        id: row

        anchors.fill: parent
        anchors.leftMargin: Theme.s32
        anchors.rightMargin: Theme.s32
        spacing: Theme.s12
    }
}
