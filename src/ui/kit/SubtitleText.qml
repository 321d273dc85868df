import QtQuick

/// The line under a screen's heading.
RoleText {
    color: Theme.textSecondary
    font.pixelSize: Theme.subtitleSize
    wrapMode: Text.Wrap
}
