import QtQuick
import Lumeo.Kit

/// A button that inserts its text at the cursor.
ButtonBase {
    id: control

    // A click must not change the focus of the text field or its selection.
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
