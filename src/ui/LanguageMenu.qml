pragma ComponentBehavior: Bound

import QtQuick
import Lumeo.Kit
import Lumeo.Window

/// The languages of the interface, each by its own name.
Menu {
    id: menu

    required property ShellModel shell

    implicitHeight: Math.min(contentHeight + 2 * padding, 460)

    Repeater {
        model: menu.shell.languages

        MenuItem {
            required property int index
            required property string modelData

            text: modelData
            checked: index === menu.shell.currentLanguage
            onTriggered: menu.shell.chooseLanguage(index)
        }
    }
}
