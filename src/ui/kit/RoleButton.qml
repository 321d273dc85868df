import QtQuick

/// Stands around a button that assistive programs know by another role. The toolkit's controls insist on the role
/// of their own type, so this item has the role, the name and the keyboard, and the button only looks and clicks.
Item {
    id: face

    required property ButtonBase control
    property int role: Accessible.Button

    implicitWidth: control.implicitWidth
    implicitHeight: control.implicitHeight
    activeFocusOnTab: true
    Accessible.role: role
    Accessible.name: control.text
    Accessible.focusable: true
    Accessible.onPressAction: control.activate()
    Keys.onReturnPressed: control.activate()
    Keys.onEnterPressed: control.activate()
    Keys.onSpacePressed: control.activate()

    FocusRing {
        shown: face.activeFocus
        radius: face.control.radius + 3
    }
}
