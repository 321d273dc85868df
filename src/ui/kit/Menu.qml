import QtQuick
import QtQuick.Templates as T

/// A list of choices or commands that a button opens. The arrow keys move through it.
T.Menu {
    id: menu

    implicitWidth: 220
    implicitHeight: contentHeight + topPadding + bottomPadding
    padding: Theme.s4
    margins: Theme.s8
    focus: true

    contentItem: ListView {
        implicitHeight: contentHeight
        model: menu.contentModel
        currentIndex: menu.currentIndex
        interactive: contentHeight > height
        clip: true
        boundsBehavior: Flickable.StopAtBounds

        T.ScrollBar.vertical: ScrollBar {
        }
    }

    background: PopupSurface {
    }
}
