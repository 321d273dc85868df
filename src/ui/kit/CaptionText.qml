import QtQuick

/// A small label beside or under a thing.
RoleText {
    color: Theme.textSecondary
    font.pixelSize: Theme.captionSize
}
