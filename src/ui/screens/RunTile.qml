import QtQuick
import QtQuick.Layouts
import Lumeo.Kit

/// A figure of a run, in a row of tiles of equal width.
StatTile {
    Layout.fillWidth: true
    Layout.preferredWidth: 1
}
