import QtQuick

/// Holds choices that exclude one another, one below the other.
Column {
    property string label

    spacing: Theme.s4
    Accessible.role: Accessible.Grouping
    Accessible.name: label
}
