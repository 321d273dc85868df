import QtQuick
import Lumeo.Kit

/// Says beforehand that the run will keep the disks busy.
Banner {
    symbol: "exclamationmark.triangle.fill"
    text: qsTrId("performance.inline")
}
