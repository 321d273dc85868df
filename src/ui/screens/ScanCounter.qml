import QtQuick.Layouts
import Lumeo.Kit

/// A tile as wide as its neighbours, whatever figures they show.
StatTile {
    Layout.fillWidth: true
    Layout.fillHeight: true
    Layout.preferredWidth: 1
}
