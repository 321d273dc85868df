import QtQuick

/// The heading of a screen.
RoleText {
    font.pixelSize: Theme.titleSize
    font.weight: Font.DemiBold
    wrapMode: Text.Wrap
    Accessible.role: Accessible.Heading
}
