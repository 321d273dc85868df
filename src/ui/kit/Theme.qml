pragma Singleton

import QtQuick

/// The colours by role, in the light and the dark appearance, and the sizes. The owner of the window sets the
/// first four properties. Screens use roles and never colours.
QtObject {
    id: theme

    property bool dark: false
    property bool reducedMotion: false
    property real textScale: 1 ///< the desktop's text size relative to the usual one
    /// The name of the tint for what the window shows now.
    property string accent: "blue"

    readonly property color ground: dark ? "#1C1C1E" : "#F5F5F7"
    readonly property color surface: dark ? "#2A2A2D" : "#FFFFFF"
    readonly property color sunken: dark ? "#161618" : "#ECECEF"
    readonly property color line: dark ? "#3D3D42" : "#DCDCE1"
    readonly property color textPrimary: dark ? "#F5F5F7" : "#1D1D1F"
    readonly property color textSecondary: dark ? "#B8B8BE" : "#515157"
    readonly property color textTertiary: dark ? "#9C9CA3" : "#66666B"
    /// Covers the window behind a sheet.
    readonly property color shade: dark ? "#99000000" : "#59000000"
    /// Covers a control while the pointer is over it or presses it.
    readonly property color hover: dark ? "#14FFFFFF" : "#0D000000"
    readonly property color press: dark ? "#24FFFFFF" : "#1A000000"
    readonly property color onFilled: "#FFFFFF"

    // Tints for text and symbols on any background.
    readonly property color blue: dark ? "#6CB2FF" : "#0059C9"
    readonly property color cyan: dark ? "#6FD6FF" : "#006A8A"
    readonly property color orange: dark ? "#FFB54D" : "#9A4A00"
    readonly property color purple: dark ? "#D79BFF" : "#8230B0"
    readonly property color indigo: dark ? "#A9A7FF" : "#4643C4"
    readonly property color green: dark ? "#5BD975" : "#15702F"
    readonly property color red: dark ? "#FF8078" : "#BF1F28"
    readonly property color yellow: dark ? "#FFD84A" : "#7A5600"
    readonly property color grey: dark ? "#A4A4AA" : "#636368"

    readonly property int s4: 4
    readonly property int s8: 8
    readonly property int s12: 12
    readonly property int s16: 16
    readonly property int s24: 24
    readonly property int s32: 32

    readonly property int radiusControl: 8
    readonly property int radiusCard: 12
    readonly property int radiusSheet: 16

    readonly property int controlHeight: scaled(32)
    readonly property int primaryHeight: scaled(36)
    readonly property int rowHeight: scaled(30)
    readonly property int contentWidth: 960

    readonly property int titleSize: scaled(26)
    readonly property int subtitleSize: scaled(15)
    readonly property int bodySize: scaled(13)
    readonly property int tableSize: scaled(12)
    readonly property int captionSize: scaled(11)
    readonly property int figureSize: scaled(22)
    readonly property string mono: "monospace"

    readonly property int quick: duration(160)

    /// A size that follows the desktop's text size.
    function scaled(size: real): int {
        return Math.round(size * textScale);
    }

    /// The colour of a tint by its name. For an unknown name, the text's colour, with a warning.
    function tint(name: string): color {
        switch (name) {
        case "blue": return blue;
        case "cyan": return cyan;
        case "orange": return orange;
        case "purple": return purple;
        case "indigo": return indigo;
        case "green": return green;
        case "red": return red;
        case "yellow": return yellow;
        case "grey": return grey;
        }
        console.warn(`There is no tint "${name}"`);
        return textPrimary;
    }

    /// The colour of a background for white text, by the name of its tint.
    function filled(name: string): color {
        switch (name) {
        case "blue": return "#0A6CE8";
        case "cyan": return "#007EA3";
        case "orange": return "#BC5A00";
        case "purple": return "#9A45CC";
        case "indigo": return "#5856D6";
        case "green": return "#1B8138";
        case "red": return "#D2303A";
        case "yellow": return "#7A5600";
        case "grey": return "#636368";
        }
        console.warn(`There is no tint "${name}"`);
        return "#636368";
    }

    /// The soft background of tiles and circles.
    function soft(shade: color): color {
        return Qt.alpha(shade, 0.12);
    }

    /// The duration of an animation of `milliseconds`. 0 with reduced motion.
    function duration(milliseconds: int): int {
        return reducedMotion ? 0 : milliseconds;
    }
}
