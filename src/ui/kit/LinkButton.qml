import QtQuick

/// A button for a small action, in the size of the text around it and without a frame.
ButtonBase {
    id: control

    property color color: Theme.tint(Theme.accent)

    implicitHeight: Theme.scaled(28)
    leftPadding: Theme.s8
    rightPadding: Theme.s8

    contentItem: ButtonLabel {
        text: control.text
        symbol: control.symbol
        color: control.color
        font: control.font
    }

    background: Rectangle {
        radius: control.radius
        color: "transparent"

        ControlOverlay {
            control: control
            radius: control.radius
        }
    }
}
