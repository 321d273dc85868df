import QtQuick

/// A button for any other action.
ButtonBase {
    id: control

    property bool trailingSymbol: false
    property color color: Theme.textPrimary

    implicitHeight: Theme.controlHeight
    leftPadding: Theme.s12
    rightPadding: Theme.s12

    contentItem: ButtonLabel {
        text: control.text
        symbol: control.symbol
        symbolTrails: control.trailingSymbol
        color: control.color
        font: control.font
    }

    background: Rectangle {
        radius: control.radius
        color: Theme.surface
        border.color: Theme.line

        ControlOverlay {
            control: control
            radius: control.radius
        }
    }
}
