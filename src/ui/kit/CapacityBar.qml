import QtQuick

/// The space on a disk: the used part, the part to be added, and the free rest, each as a share from 0 to 1.
/// The bar is empty when nothing is known about the disk.
Rectangle {
    id: bar

    property real used: 0
    property real added: 0
    readonly property real free: Math.max(0, 1 - used - added)
    readonly property bool overflows: used + added > 1
    property string tint: Theme.accent

    implicitWidth: 160
    implicitHeight: 8
    radius: height / 2
    color: Theme.sunken
    border.color: Theme.dark ? Theme.line : "transparent"
    Accessible.role: Accessible.Indicator

    Row {
        anchors.fill: parent
        spacing: bar.used > 0 && bar.added > 0 ? 1 : 0

        Rectangle {
            width: Math.min(1, bar.used) * bar.width
            height: parent.height
            radius: bar.radius
            color: Theme.grey
            opacity: 0.55
        }

        Rectangle {
            width: Math.min(1 - Math.min(1, bar.used), bar.added) * bar.width
            height: parent.height
            radius: bar.radius
            color: bar.overflows ? Theme.red : Theme.tint(bar.tint)
        }
    }
}
