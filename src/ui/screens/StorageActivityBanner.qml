import QtQuick
import Lumeo.Kit

/// Says beforehand, beside the button that starts it, that the run will keep the disks busy.
Banner {
    symbol: "exclamationmark.triangle.fill"
    text: qsTrId("performance.inline")
    textSize: Theme.captionSize
}
