import QtQuick
import QtQuick.Layouts

/// Narrows a list to one kind of rows, and shows how many there are.
ExclusiveButton {
    id: control

    property string count ///< as shown; empty when there is none

    implicitHeight: Theme.scaled(28)
    leftPadding: Theme.s12
    rightPadding: Theme.s12
    radius: 14
    font.pixelSize: Theme.tableSize
    Accessible.name: count !== "" ? text + " " + count : text

    contentItem: RowLayout {
        spacing: 6

        Text {
            Layout.fillWidth: true
            text: control.text
            textFormat: Text.PlainText
            color: control.checked ? Theme.onFilled : Theme.textPrimary
            font: control.font
            elide: Text.ElideRight
        }

        Text {
            visible: text !== ""
            text: control.count
            color: control.checked ? Theme.onFilled : Theme.textSecondary
            font.pixelSize: Theme.captionSize
        }
    }

    background: Rectangle {
        radius: control.radius
        color: control.checked ? Theme.filled(Theme.accent) : Theme.surface
        border.color: control.checked ? "transparent" : Theme.line

        ControlOverlay {
            control: control
            radius: control.radius
        }
    }
}
