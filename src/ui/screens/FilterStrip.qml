pragma ComponentBehavior: Bound

import QtQuick
import Lumeo.Kit
import Lumeo.Window

/// The filters of the preview in one line, which scrolls when they do not fit.
Flickable {
    id: strip

    required property PreviewModel model
    readonly property int ringRoom: 4 ///< around the pills, for the focus ring

    /// Scrolls just far enough to show a whole pill and a part of the next one.
    function reveal(pill: Item) {
        const least = Math.max(0, pill.x + pill.width + Theme.s24 - width);
        contentX = Math.max(least, Math.min(contentX, Math.max(0, pill.x - Theme.s24)));
        returnToBounds();
    }

    implicitHeight: pills.implicitHeight + 2 * ringRoom
    contentWidth: pills.implicitWidth + 2 * ringRoom
    interactive: contentWidth > width
    flickableDirection: Flickable.HorizontalFlick
    boundsBehavior: Flickable.StopAtBounds
    clip: interactive

    Row {
        id: pills

        x: strip.ringRoom
        y: strip.ringRoom
        spacing: Theme.s8

        Repeater {
            model: strip.model.filters

            FilterPill {
                required property var modelData

                objectName: "filter-" + modelData.name
                text: modelData.text
                count: modelData.count
                checked: strip.model.selectedFilter === modelData.name
                onClicked: strip.model.selectedFilter = modelData.name
                onActiveFocusChanged: if (activeFocus) strip.reveal(this)
            }
        }
    }

    WheelHandler {
        enabled: strip.interactive
        orientation: Qt.Vertical
        onWheel: event => {
            strip.contentX -= event.angleDelta.y / 2;
            strip.returnToBounds();
        }
    }
}
