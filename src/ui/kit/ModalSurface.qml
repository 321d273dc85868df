import QtQuick
import QtQuick.Templates as T

/// A surface over the dimmed window that keeps the keyboard focus. Escape closes it. The focus then returns
/// to where it was.
T.Popup {
    id: surface

    property Item cameFrom: null

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    padding: Theme.s24
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape
    onAboutToShow: cameFrom = parent.Window.activeFocusItem
    onClosed: if (cameFrom) cameFrom.forceActiveFocus(Qt.PopupFocusReason)

    T.Overlay.modal: Rectangle {
        color: Theme.shade

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.quick
            }
        }
    }

    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.quick
            easing.type: Easing.OutCubic
        }
    }

    exit: Transition {
        NumberAnimation {
            property: "opacity"
            from: 1
            to: 0
            duration: Theme.quick
            easing.type: Easing.OutCubic
        }
    }

    background: Rectangle {
        color: Theme.surface
        border.color: Theme.line
        radius: Theme.radiusSheet
    }
}
