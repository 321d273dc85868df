import QtQuick

/// Shows one screen of several. When a screen goes that had the keyboard, Tab leads on to the first
/// control of the one that comes.
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

    onScreenChanged: setSource(screen, properties)
    Keys.onTabPressed: event => {
        const first = item ? firstControl(item) : null;
        event.accepted = first !== null;
        if (first)
            first.forceActiveFocus(Qt.TabFocusReason);
    }
}
