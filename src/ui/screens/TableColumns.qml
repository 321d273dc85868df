import QtQuick
import Lumeo.Kit

/// The widths of the preview's columns. The user can change them. The file's name and the destination share the
/// remaining space, one part to two.
/// Where the table is too narrow for it, columns whose values the inspector also shows disappear, unless the
/// user has set their width. If that is not enough, the table scrolls.
QtObject {
    id: columns

    required property real available

    readonly property var keys: ["file", "date", "source", "confidence", "destination", "status"]
    readonly property var names: keys.map(key => qsTrId("preview.col." + key))
    readonly property int destination: 4
    readonly property int readable: 280 ///< destination: last folder, name, start of the path

    readonly property var least: [120, 80, 80, 72, 180, 56]
    readonly property var usual: {
        const widths = [172, 104, 160, 84, 0, 70];
        return widths.map(width => Theme.scaled(width));
    }
    property list<int> chosen ///< by the user; 0 for a column whose width was not set
    signal resized(var widths) ///< the new value of `chosen`

    /// Uses the usual widths, not the chosen ones: making a column wider must not make another one disappear.
    readonly property var givingWay: {
        let left = available - usual.reduce((sum, width) => sum + width, 0);
        return [2, 5].filter(column => {
            const gives = left < readable;
            left += gives ? usual[column] : 0;
            return gives;
        });
    }
    readonly property var widths: {
        const all = usual.map((width, column) => chosen[column] || (givingWay.includes(column) ? 0 : width));
        let left = available - all.reduce((sum, width) => sum + width, 0);
        // If a name does not fit, its column takes space that no other column needs.
        all.forEach((width, column) => {
            const wish = width > 0 && !chosen[column] ? nameWidth(column) - width : 0;
            const more = Math.max(0, Math.min(wish, left - readable));
            all[column] += more;
            left -= more;
        });
        const surplus = Math.max(0, left - readable);
        const forName = chosen[0] ? 0 : Math.min(Theme.scaled(420) - all[0], Math.floor(surplus / 3));
        all[0] += Math.max(0, forName);
        all[destination] = Math.max(least[destination], left - Math.max(0, forName));
        return all;
    }
    readonly property real total: widths.reduce((sum, width) => sum + width, 0)
    readonly property FontMetrics metrics: FontMetrics {
        font.pixelSize: Theme.captionSize
        font.weight: Font.DemiBold
        font.letterSpacing: 0.5
    }

    function nameWidth(column: int): real {
        return Math.ceil(metrics.advanceWidth(names[column])) + Theme.s12 + Theme.s8 + 1;
    }

    /// Makes a column wider or narrower. For the destination, its neighbour changes instead.
    function resize(column: int, by: real) {
        const target = column === destination ? column + 1 : column;
        const all = usual.map((width, index) => chosen[index] || 0);
        const now = widths[target] + (target === column ? by : -by);
        all[target] = Math.max(least[target], Math.min(600, now));
        chosen = all;
        resized(all);
    }
}
