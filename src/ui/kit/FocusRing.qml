import QtQuick

/// A ring around its parent. Shows that the parent has the keyboard focus.
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
