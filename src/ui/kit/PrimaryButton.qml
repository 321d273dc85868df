import QtQuick

/// The one thing to do next on a screen.
ButtonBase {
    id: control

    property string accent: Theme.accent
    property bool trailingSymbol: false

    implicitHeight: Theme.primaryHeight
    implicitWidth: Math.max(88, implicitContentWidth + leftPadding + rightPadding)
    leftPadding: Theme.s16
    rightPadding: Theme.s16
    font.weight: Font.DemiBold

    contentItem: ButtonLabel {
        text: control.text
        symbol: control.symbol
        symbolTrails: control.trailingSymbol
        color: Theme.onFilled
        cutOut: Theme.filled(control.accent)
        font: control.font
    }

    background: Rectangle {
        radius: control.radius
        color: Theme.filled(control.accent)

        ControlOverlay {
            control: control
            radius: control.radius
        }
    }
}
