import QtQuick

/// What menus and lists that open over the window lie on.
Rectangle {
    color: Theme.surface
    border.color: Theme.line
    radius: Theme.radiusControl
}
