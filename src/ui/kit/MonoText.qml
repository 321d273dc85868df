import QtQuick

/// A path, or other text in which every character matters. A text that is too long is cut in its middle.
RoleText {
    color: Theme.textSecondary
    font.family: Theme.mono
    font.pixelSize: Theme.captionSize
    elide: Text.ElideMiddle
}
