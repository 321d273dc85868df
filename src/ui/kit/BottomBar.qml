import QtQuick
import QtQuick.Layouts

/// The buttons that lead on and back. Always visible on a screen.
Rectangle {
    id: bar

    default property alias content: row.data
    /// The button under the pointer that cannot be used and says why.
    readonly property PrimaryButton blocked: {
        for (let i = 0; i < row.children.length; ++i) {
            const button = row.children[i] as PrimaryButton;
            const isBlocked = button && button.visible && !button.enabled && button.missing !== "";
            if (isBlocked && pointer.hovered && button.contains(button.mapFromItem(bar, pointer.point.position)))
                return button;
        }
        return null;
    }

    implicitHeight: 64
    color: Theme.surface
    Accessible.role: Accessible.ToolBar

    Rectangle {
        width: parent.width
        height: 1
        color: Theme.line
    }

    // A button that cannot be used gets no events of the pointer.
    HoverHandler {
        id: pointer
    }

    ToolTip {
        parent: bar.blocked as Item
        text: bar.blocked ? bar.blocked.missing : ""
        visible: bar.blocked !== null
    }

    RowLayout {
        id: row

        anchors.fill: parent
        anchors.leftMargin: Theme.s32
        anchors.rightMargin: Theme.s32
        spacing: Theme.s12
    }
}
