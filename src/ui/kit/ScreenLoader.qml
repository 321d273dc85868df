import QtQuick

/// Shows one of several screens. If the old screen had the keyboard focus, Tab moves to the first control of
/// the new one.
Loader {
    /// The URL of the screen that is shown, and what it is made with.
    property url screen
    property var properties: ({})

    function firstControl(item: Item): Item {
        for (let i = 0; i < item.children.length; ++i) {
            const child = item.children[i];
            if (!child.visible || !child.enabled)
                continue;
            const control = child.activeFocusOnTab ? child : firstControl(child);
            if (control)
                return control;
        }
        return null;
    }

    function primary(item: Item): PrimaryButton {
        for (let i = 0; i < item.children.length; ++i) {
            const child = item.children[i];
            const found = child.visible && child.enabled ? child as PrimaryButton ?? primary(child) : null;
            if (found)
                return found;
        }
        return null;
    }

    /// If nothing on the screen has the focus, Return presses its primary button.
    function proceed(event: var) {
        const button = item ? primary(item) : null;
        event.accepted = button !== null;
        if (button)
            button.activate();
    }

    Keys.onReturnPressed: event => proceed(event)
    Keys.onEnterPressed: event => proceed(event)
    onScreenChanged: setSource(screen, properties)
    Keys.onTabPressed: event => {
        const first = item ? firstControl(item) : null;
        event.accepted = first !== null;
        if (first)
            first.forceActiveFocus(Qt.TabFocusReason);
    }
}
