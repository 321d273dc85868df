import QtQuick
import Lumeo.Kit

/// Warns, beside the button that starts the run, that the run will keep the disks busy.
Banner {
    symbol: "exclamationmark.triangle.fill"
    text: qsTrId("performance.inline")
    textSize: Theme.captionSize
}
