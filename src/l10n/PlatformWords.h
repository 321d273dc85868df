#pragma once

#include "l10n/AppLanguage.h"

#include <QString>
#include <QStringView>

namespace lumeo {

/// A text with the words of this platform. The tables are shared with programs for another platform and name
/// its computer and its file browser. Any thread may call.
[[nodiscard]] QString withPlatformWords(QStringView text, AppLanguage language);

} // namespace lumeo
