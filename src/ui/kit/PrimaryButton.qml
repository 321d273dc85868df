import QtQuick

/// The main action of a screen.
ButtonBase {
    id: control

    property string accent: Theme.accent
    property bool trailingSymbol: false
    property string missing ///< what it takes before the button can be used; its bar shows it as a tooltip

    implicitHeight: Theme.primaryHeight
    implicitWidth: Math.max(88, implicitContentWidth + leftPadding + rightPadding)
    leftPadding: Theme.s16
    rightPadding: Theme.s16
    font.weight: Font.DemiBold
    opacity: 1 // the text stays readable when the button is disabled
    Accessible.description: enabled ? "" : missing

    contentItem: ButtonLabel {
        text: control.text
        symbol: control.symbol
        symbolTrails: control.trailingSymbol
        color: control.enabled ? Theme.onFilled : Theme.textSecondary
        cutOut: control.enabled ? Theme.filled(control.accent) : Theme.sunken
        font: control.font
    }

    background: Rectangle {
        radius: control.radius
        color: control.enabled ? Theme.filled(control.accent) : Theme.sunken
        border.color: control.enabled ? "transparent" : Theme.line

        ControlOverlay {
            control: control
            radius: control.radius
        }
    }
}
