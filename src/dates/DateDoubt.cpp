#include "dates/DateDoubt.h"

namespace lumeo {

DateDoubt dateDoubtOf(const MediaItem& item) {
    if (!item.resolvedDate) {
        return DateDoubt::undated;
    }
    const bool isTrusted =
        item.dateConfidence == DateConfidence::high || item.dateConfidence == DateConfidence::medium;
    return isTrusted && !item.dateSuspiciousWarning ? DateDoubt::none : DateDoubt::doubtful;
}

} // namespace lumeo
