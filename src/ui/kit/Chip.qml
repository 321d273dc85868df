import QtQuick

/// One figure about a list in a few words, shown above the list.
Badge {
    implicitHeight: Theme.scaled(24)
    radius: 12
}
