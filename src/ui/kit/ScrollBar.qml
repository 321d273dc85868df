import QtQuick
import QtQuick.Templates as T

/// Shows the position in a list. It appears when the list is longer than its space.
T.ScrollBar {
    id: control

    implicitWidth: 10
    implicitHeight: 10
    padding: 2
    minimumSize: 0.06
    visible: policy === T.ScrollBar.AlwaysOn || (policy === T.ScrollBar.AsNeeded && size < 1)

    contentItem: Rectangle {
        radius: 3
        color: Theme.textTertiary
        opacity: control.pressed ? 0.9 : control.hovered ? 0.7 : 0.4

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.quick
            }
        }
    }
}
