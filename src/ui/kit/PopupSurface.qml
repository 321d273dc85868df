import QtQuick

/// The background of menus and lists that open over the window.
Rectangle {
    color: Theme.surface
    border.color: Theme.line
    radius: Theme.radiusControl
}
