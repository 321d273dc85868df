import QtQuick
import Lumeo.Kit

/// One text of a row; what does not fit is said by the table's tooltip.
RoleText {
    id: cell

    /// Called with this text while the pointer is on it and it was cut short, with null after that.
    required property var explain

    height: parent.height
    visible: width > 0
    leftPadding: Theme.s12
    rightPadding: Theme.s8
    font.pixelSize: Theme.tableSize
    elide: Text.ElideRight
    verticalAlignment: Text.AlignVCenter
    Accessible.ignored: true

    HoverHandler {
        enabled: cell.truncated
        onHoveredChanged: cell.explain(hovered ? cell : null)
    }
}
