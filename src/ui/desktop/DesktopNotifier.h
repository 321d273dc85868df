#pragma once

#include <QString>

namespace lumeo {

/// Shows a message as a desktop notification. Nothing happens where the desktop has none. Main thread only.
struct DesktopNotifier {
    static void tell(const QString& title, const QString& text);
};

} // namespace lumeo
