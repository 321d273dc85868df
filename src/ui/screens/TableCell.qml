import QtQuick
import Lumeo.Kit

/// One text of a row. The table's tooltip shows a text that does not fit.
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
