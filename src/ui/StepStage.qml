import QtQuick
import Lumeo.Kit

/// Shows the screen of a step. The screen of another step slides in briefly, from the side that the wizard
/// moves to.
FocusScope {
    id: stage

    required property int step
    required property var screens ///< {url, properties} for each step

    property int shownStep: -1
    property real direction: 1

    function show() {
        direction = step < shownStep ? -1 : 1;
        const isFirst = shownStep < 0;
        shownStep = step;
        screen.properties = screens[step].properties;
        screen.screen = Qt.resolvedUrl(screens[step].url);
        if (!isFirst)
            arrival.restart();
    }

    clip: true
    focus: true
    onStepChanged: show()
    Component.onCompleted: show()

    ScreenLoader {
        id: screen

        width: parent.width
        height: parent.height
        focus: true
    }

    ParallelAnimation {
        id: arrival

        NumberAnimation {
            target: screen
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.duration(220)
            easing.type: Easing.OutCubic
        }

        NumberAnimation {
            target: screen
            property: "x"
            from: 8 * stage.direction
            to: 0
            duration: Theme.duration(220)
            easing.type: Easing.OutCubic
        }
    }
}
