#pragma once

#include "transfer/OperationManifest.h"

#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <vector>

namespace lumeo {

/// The files of a run that failed for one reason.
struct FailureGroup {
    QString sentence; ///< the reason
    QStringList names;
    QStringList paths; ///< in the order of the names

    [[nodiscard]] QVariantMap shown() const; ///< {sentence, count, names: the first three in a line}
    [[nodiscard]] QStringList lines() const; ///< the sentence, and below it the paths
};

/// The reason of most files comes first. Null gives none.
std::vector<FailureGroup> failureGroups(const OperationManifest* manifest);

} // namespace lumeo
