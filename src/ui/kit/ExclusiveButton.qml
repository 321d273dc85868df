import QtQuick
import QtQuick.Templates as T

/// One choice of a group whose members have the same parent. Tab moves to the chosen one. The arrow keys move
/// on from there and choose.
T.RadioButton {
    id: control

    property string symbol
    property real radius: Theme.radiusControl
    readonly property bool isExclusiveButton: true
    readonly property bool anotherIsChecked: {
        const siblings = parent ? parent.children : [];
        for (let i = 0; i < siblings.length; ++i) {
            if (siblings[i] !== control && siblings[i].isExclusiveButton && siblings[i].checked)
                return true;
        }
        return false;
    }

    /// What a click does, for keys and assistive programs.
    function activate() {
        if (!checked)
            toggle();
        clicked();
    }

    function step(direction: int) {
        const group = [];
        for (let i = 0; i < parent.children.length; ++i) {
            const item = parent.children[i];
            if (item.isExclusiveButton && item.enabled && item.visible)
                group.push(item);
        }
        const next = group[(group.indexOf(control) + direction + group.length) % group.length];
        next.forceActiveFocus(Qt.TabFocusReason);
        next.activate();
    }

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    font.pixelSize: Theme.bodySize
    opacity: enabled ? 1 : 0.45
    focusPolicy: anotherIsChecked ? Qt.ClickFocus : Qt.StrongFocus

    Accessible.role: Accessible.RadioButton
    Accessible.name: text
    Accessible.onPressAction: control.activate()

    Keys.onReturnPressed: control.activate()
    Keys.onEnterPressed: control.activate()
    Keys.onUpPressed: control.step(-1)
    Keys.onLeftPressed: control.step(-1)
    Keys.onDownPressed: control.step(1)
    Keys.onRightPressed: control.step(1)

    HoverHandler {
        cursorShape: Qt.PointingHandCursor
    }

    FocusRing {
        shown: control.visualFocus
        radius: control.radius + 3
    }
}
