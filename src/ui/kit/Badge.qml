import QtQuick

/// A word that shows what kind a thing is.
Rectangle {
    id: badge

    property alias text: label.text
    property string tint: Theme.accent

    implicitWidth: label.implicitWidth + 2 * Theme.s8
    implicitHeight: Theme.scaled(20)
    radius: 6
    color: Theme.soft(Theme.tint(tint))

    CaptionText {
        id: label

        anchors.fill: parent
        anchors.leftMargin: Theme.s8
        anchors.rightMargin: Theme.s8
        color: Theme.tint(badge.tint)
        font.weight: Font.Medium
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
}
