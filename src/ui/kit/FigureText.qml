import QtQuick

/// The large number of a tile.
RoleText {
    font.pixelSize: Theme.figureSize
    font.weight: Font.DemiBold
    elide: Text.ElideRight
}
