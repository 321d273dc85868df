import QtQuick

/// A figure of a list in few words, above it.
Badge {
    implicitHeight: 24
    radius: 12
}
