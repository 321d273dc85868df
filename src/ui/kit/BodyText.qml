import QtQuick

/// Running text.
RoleText {
    wrapMode: Text.Wrap
}
