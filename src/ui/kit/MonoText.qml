import QtQuick

/// A path, or anything else whose every character counts; too long a one loses its middle.
RoleText {
    color: Theme.textSecondary
    font.family: Theme.mono
    font.pixelSize: Theme.captionSize
    elide: Text.ElideMiddle
}
