pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Lumeo.Kit

/// Lines to read or copy. The list scrolls when there are many.
ColumnLayout {
    id: list

    property var lines: [] ///< texts
    property int tallest: 180
    signal copied

    spacing: Theme.s4

    ListView {
        Layout.fillWidth: true
        Layout.preferredHeight: Math.min(contentHeight, list.tallest)
        model: list.lines
        spacing: Theme.s4
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        ScrollBar.vertical: ScrollBar {}

        delegate: MonoText {
            required property string modelData

            width: ListView.view ? ListView.view.width - Theme.s12 : 0
            text: modelData
            wrapMode: Text.WrapAnywhere
            elide: Text.ElideNone
            horizontalAlignment: Text.AlignLeft
        }
    }

    LinkButton {
        text: "Copy"
        symbol: "doc.on.doc"
        onClicked: list.copied()
    }
}
