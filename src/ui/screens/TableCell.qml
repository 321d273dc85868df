import QtQuick
import Lumeo.Kit

/// One text of a row; what does not fit is said by the table's tooltip.
RoleText {
    height: parent.height
    visible: width > 0
    leftPadding: Theme.s12
    rightPadding: Theme.s8
    font.pixelSize: Theme.tableSize
    elide: Text.ElideRight
    verticalAlignment: Text.AlignVCenter
    Accessible.ignored: true
}
