import QtQuick
import Lumeo.Kit

/// A path in a row, cut in its middle. The last folder and the name stay visible as long as they fit.
Item {
    id: cell

    required property string text
    readonly property bool truncated: beginning.truncated || end.truncated
    readonly property int lastFolder: Math.max(0, text.lastIndexOf("/", text.lastIndexOf("/") - 1))
    readonly property int ellipsis: 10 ///< the width that shows that the path does not start here
    readonly property real room: Math.max(0, width - Theme.s12 - Theme.s8)

    component Part: MonoText {
        horizontalAlignment: Text.AlignLeft
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }

    Part {
        id: beginning

        x: Theme.s12
        height: cell.height
        width: Math.min(implicitWidth, cell.room - end.width)
        visible: !end.truncated
        text: cell.text.slice(0, cell.lastFolder)
        elide: Text.ElideRight
    }

    Part {
        id: end

        x: Theme.s12 + (truncated ? 0 : beginning.width)
        height: cell.height
        width: Math.min(implicitWidth, cell.room - Math.min(beginning.implicitWidth, cell.ellipsis))
        text: cell.text.slice(cell.lastFolder)
        elide: Text.ElideLeft
    }
}
