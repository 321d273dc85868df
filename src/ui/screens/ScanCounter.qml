import QtQuick.Layouts
import Lumeo.Kit
import Lumeo.Window

/// A tile as wide as its neighbours, whatever the figures in them.
StatTile {
    Layout.fillWidth: true
    Layout.fillHeight: true
    Layout.preferredWidth: 1
}
