import QtQuick

/// Names a section, in the style of a caption.
CaptionText {
    font.weight: Font.DemiBold
    font.letterSpacing: 0.5
    Accessible.role: Accessible.Heading
}
