import QtQuick

/// Takes something away; stands apart and is never the default.
PlainButton {
    color: Theme.red
}
