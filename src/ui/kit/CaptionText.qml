import QtQuick

/// What a thing is called, small, beside or under it.
RoleText {
    color: Theme.textSecondary
    font.pixelSize: Theme.captionSize
}
