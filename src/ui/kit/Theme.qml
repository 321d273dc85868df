pragma Singleton

import QtQuick

/// The colours by role, in the light and the dark appearance, and the measures.
QtObject {
    property bool dark: false
    property bool reducedMotion: false

    readonly property color ground: dark ? "#1C1C1E" : "#F5F5F7"
    readonly property color surface: dark ? "#2A2A2D" : "#FFFFFF"
}
