import QtQuick
import Lumeo.Kit

Window {
    required property ShellModel shell

    visible: true
    title: "LUMEO."
    width: 1100
    height: 760
    color: Theme.ground
}
