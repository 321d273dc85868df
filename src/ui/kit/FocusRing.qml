import QtQuick

/// Shows which control the keyboard speaks to. Lies around its parent.
Rectangle {
    required property bool shown

    anchors.fill: parent
    anchors.margins: -3
    z: 1
    visible: shown
    color: "transparent"
    radius: Theme.radiusControl + 3
    border.width: 2
    border.color: Theme.tint(Theme.accent)
}
