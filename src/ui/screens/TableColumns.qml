import QtQuick

/// The widths of the preview's columns, which the user can change. The destination takes what is left.
QtObject {
    id: columns

    required property real available

    readonly property var keys: ["file", "date", "source", "confidence", "destination", "status"]
    readonly property var least: [120, 80, 80, 72, 180, 56]
    property var chosen: [210, 112, 164, 104, 0, 88]

    readonly property int destination: 4
    readonly property var widths: {
        const all = chosen.slice();
        const others = all.reduce((sum, width) => sum + width, 0);
        all[destination] = Math.max(least[destination], available - others);
        return all;
    }
    readonly property real total: widths.reduce((sum, width) => sum + width, 0)

    /// Makes a column wider or narrower; of the destination, its neighbour gives or takes.
    function resize(column: int, by: real) {
        const target = column === destination ? column + 1 : column;
        const all = chosen.slice();
        all[target] = Math.max(least[target], Math.min(600, all[target] + (target === column ? by : -by)));
        chosen = all;
    }
}
