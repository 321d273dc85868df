import QtQuick
import QtQuick.Templates as T

/// A page that may be longer than its space. It scrolls to the control with the focus, and by keys. If it has
/// no control that takes the focus, set `activeFocusOnTab: scrolls`, and the page itself takes it.
Flickable {
    id: page

    readonly property bool scrolls: contentHeight > height
    readonly property Item focused: Window.activeFocusItem

    function scrollTo(y: real) {
        contentY = Math.max(0, Math.min(y, contentHeight - height));
    }

    function holds(item: Item): bool {
        while (item && item !== contentItem)
            item = item.parent;
        return item !== null;
    }

    onFocusedChanged: {
        if (!scrolls || !holds(focused))
            return;
        const top = focused.mapToItem(contentItem, 0, 0).y - Theme.s24;
        const bottom = top + focused.height + 2 * Theme.s24;
        if (top < contentY)
            scrollTo(top);
        else if (bottom > contentY + height)
            scrollTo(bottom - height);
    }

    boundsBehavior: Flickable.StopAtBounds
    Accessible.role: Accessible.Pane
    clip: true
    Keys.onPressed: event => {
        const line = 40;
        const most = height - line;
        const steps = new Map([[Qt.Key_Up, -line], [Qt.Key_Down, line], [Qt.Key_PageUp, -most],
                               [Qt.Key_PageDown, most], [Qt.Key_Home, -contentHeight],
                               [Qt.Key_End, contentHeight]]);
        event.accepted = scrolls && steps.has(event.key);
        if (event.accepted)
            scrollTo(contentY + steps.get(event.key));
    }

    T.ScrollBar.vertical: ScrollBar {
    }

    FocusRing {
        parent: page
        shown: page.activeFocus && page.Window.activeFocusItem === page
        anchors.margins: 2
    }
}
