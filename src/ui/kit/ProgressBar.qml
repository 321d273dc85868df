import QtQuick
import QtQuick.Templates as T

/// How much is done, from 0 to 1, or that something is going on whose end is unknown.
T.ProgressBar {
    id: control

    property string tint: Theme.accent

    implicitWidth: 200
    implicitHeight: 6
    Accessible.role: Accessible.ProgressBar
    // The toolkit gives readers the value of sliders, but not that of its progress bars.
    Accessible.description: indeterminate ? "" : Math.round(position * 100) + "%"

    background: Rectangle {
        color: Theme.sunken
        border.color: Theme.dark ? Theme.line : "transparent"
        radius: height / 2
    }

    contentItem: Item {
        clip: true

        Rectangle {
            visible: !control.indeterminate && width > 0
            width: control.visualPosition > 0 ? Math.max(height, control.visualPosition * parent.width) : 0
            height: parent.height
            radius: height / 2
            color: Theme.tint(control.tint)
        }

        Rectangle {
            id: runner

            visible: control.indeterminate
            // With reduced motion the whole bar is tinted and does not move.
            width: Theme.reducedMotion ? parent.width : parent.width * 0.3
            height: parent.height
            radius: height / 2
            color: Theme.tint(control.tint)
            opacity: Theme.reducedMotion ? 0.5 : 1

            XAnimator on x {
                running: runner.visible && !Theme.reducedMotion
                loops: Animation.Infinite
                from: -runner.width
                to: control.width
                duration: 1400
                easing.type: Easing.InOutSine
                onRunningChanged: if (!running) runner.x = 0
            }
        }
    }
}
