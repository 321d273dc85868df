import QtQuick
import Lumeo.Kit
import Lumeo.Window

/// The second step: the scan while it runs, and what it found once it is over.
Item {
    id: screen

    required property ScanModel model

    ScreenLoader {
        anchors.fill: parent
        focus: true
        sourceComponent: screen.model.isScanning ? scanning : results
    }

    Component {
        id: scanning

        ScanningView {
            model: screen.model
        }
    }

    Component {
        id: results

        ResultsView {
            model: screen.model
        }
    }
}
