import QtQuick
import QtQuick.Templates as T

/// The base of all buttons: a role and a name, the focus ring, Space and Return, and the shape of the
/// pointer. The derived types define the look.
T.AbstractButton {
    id: control

    property string symbol
    property real radius: Theme.radiusControl

    /// What a click does, for keys and assistive programs.
    function activate() {
        if (checkable)
            toggle();
        clicked();
    }

    implicitWidth: Math.max(implicitBackgroundWidth, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: Math.max(implicitBackgroundHeight, implicitContentHeight + topPadding + bottomPadding)
    font.pixelSize: Theme.bodySize
    opacity: enabled ? 1 : 0.45

    Accessible.role: checkable ? Accessible.CheckBox : Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: control.activate()

    Keys.onReturnPressed: control.activate()
    Keys.onEnterPressed: control.activate()

    HoverHandler {
        cursorShape: Qt.PointingHandCursor
    }

    FocusRing {
        shown: control.visualFocus
        radius: control.radius + 3
    }
}
