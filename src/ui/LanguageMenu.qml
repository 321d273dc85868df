pragma ComponentBehavior: Bound

import QtQuick
import QtQml
import Lumeo.Kit
import Lumeo.Window

/// The languages of the interface. Each is called by its own name.
Menu {
    id: menu

    required property ShellModel shell

    implicitHeight: Math.min(contentHeight + 2 * padding, 460)

    Instantiator {
        model: menu.shell.languages

        MenuItem {
            required property int index
            required property string modelData

            text: modelData
            checked: index === menu.shell.currentLanguage
            onTriggered: menu.shell.chooseLanguage(index)
        }

        onObjectAdded: (index, object) => menu.insertItem(index, object)
        onObjectRemoved: (index, object) => menu.removeItem(object)
    }
}
