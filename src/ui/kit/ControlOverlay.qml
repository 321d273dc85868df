import QtQuick
import QtQuick.Templates as T

/// Darkens or lightens the background of a control while the pointer is over it or presses it.
Rectangle {
    required property T.AbstractButton control

    anchors.fill: parent
    color: control.down ? Theme.press : control.hovered ? Theme.hover : "transparent"

    Behavior on color {
        ColorAnimation {
            duration: Theme.quick
            easing.type: Easing.OutCubic
        }
    }
}
