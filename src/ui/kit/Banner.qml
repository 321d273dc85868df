import QtQuick
import QtQuick.Layouts

/// One sentence that the user should read before going on.
Rectangle {
    id: banner

    property string symbol
    property alias text: label.text
    property string tint: "orange"
    property int textSize: Theme.tableSize

    implicitWidth: 400
    implicitHeight: row.implicitHeight + 2 * Theme.s8
    radius: Theme.radiusControl
    color: Theme.soft(Theme.tint(tint))
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    RowLayout {
        id: row

        anchors.fill: parent
        anchors.leftMargin: Theme.s12
        anchors.rightMargin: Theme.s12
        spacing: Theme.s8

        Symbol {
            visible: banner.symbol !== ""
            name: banner.symbol
            size: 16
            color: Theme.tint(banner.tint)
        }

        RoleText {
            id: label

            Layout.fillWidth: true
            font.pixelSize: banner.textSize
            wrapMode: Text.Wrap
            verticalAlignment: Text.AlignVCenter
            Accessible.ignored: true
        }
    }
}
