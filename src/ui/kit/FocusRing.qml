import QtQuick

/// Shows which control the keyboard speaks to. Lies around `target`, which draws it as its child.
Rectangle {
    required property Item target
    property bool shown: target.visualFocus

    anchors.fill: parent
    anchors.margins: -3
    z: 1
    visible: shown
    color: "transparent"
    radius: Theme.radiusControl + 3
    border.width: 2
    border.color: Theme.tint(Theme.accent)
}
