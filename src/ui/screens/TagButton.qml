import QtQuick
import Lumeo.Kit

/// Writes its text where the cursor is.
ButtonBase {
    id: control

    // A click leaves the line that is written on, and what is selected there, as they are.
    focusPolicy: Qt.TabFocus
    implicitHeight: Theme.scaled(24)
    leftPadding: 6
    rightPadding: 6
    radius: 6
    font.pixelSize: Theme.captionSize
    font.family: Theme.mono

    contentItem: ButtonLabel {
        text: control.text
        symbol: ""
        color: Theme.tint(Theme.accent)
        font: control.font
    }

    background: Rectangle {
        radius: control.radius
        color: Theme.soft(Theme.tint(Theme.accent))

        ControlOverlay {
            control: control
            radius: control.radius
        }
    }
}
