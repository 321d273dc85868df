#pragma once

#include <QString>

namespace lumeo {

/// Shows a message of the program among the desktop's notifications. Nothing happens where nobody shows them.
/// Main thread only.
struct DesktopNotifier {
    static void tell(const QString& title, const QString& text);
};

} // namespace lumeo
