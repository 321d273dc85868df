import QtQuick

/// A button that removes something. It stands apart from others and is never the default.
PlainButton {
    color: Theme.red
}
