import QtQuick
import QtQuick.Templates as T

/// A surface for things that belong together. It is as tall as its content.
T.Pane {
    id: card

    property color color: Theme.surface
    property color lineColor: Theme.line
    property real radius: Theme.radiusCard

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    padding: Theme.s16
    focusPolicy: Qt.NoFocus

    background: Rectangle {
        color: card.color
        border.color: card.lineColor
        radius: card.radius
    }
}
