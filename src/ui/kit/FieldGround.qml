import QtQuick
import QtQuick.Templates as T

/// The background of a text field, and the hint that it shows while it is empty.
Rectangle {
    id: ground

    required property T.TextField field
    required property bool focused
    required property string placeholder
    property bool invalid: false

    radius: Theme.radiusControl
    color: Theme.dark ? Theme.sunken : Theme.surface
    border.width: focused || invalid ? 2 : 1
    border.color: invalid ? Theme.red : focused ? Theme.tint(Theme.accent) : Theme.line

    Text {
        anchors.fill: parent
        anchors.leftMargin: ground.field.leftPadding
        anchors.rightMargin: ground.field.rightPadding
        visible: text !== ""
        text: ground.placeholder
        textFormat: Text.PlainText
        color: Theme.textTertiary
        font: ground.field.font
        elide: Text.ElideRight
        verticalAlignment: Text.AlignVCenter
    }
}
