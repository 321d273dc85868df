import QtQuick

/// A number that is the point of its tile.
RoleText {
    font.pixelSize: Theme.figureSize
    font.weight: Font.DemiBold
    elide: Text.ElideRight
}
