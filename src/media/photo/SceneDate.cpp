#include "media/photo/SceneDate.h"

#include "platform/LocalCalendar.h"

namespace lumeo {

namespace {

bool isDayAlone(const WallTime& time) {
    return time.hour == 12 && time.minute == 0 && time.second == 0;
}

bool isOnDay(const std::optional<Instant>& date, const WallTime& day) {
    if (!date) {
        return false;
    }
    const WallTime time = LocalCalendar::components(*date);
    return time.year == day.year && time.month == day.month && time.day == day.day;
}

} // namespace

void fillSceneDate(const std::optional<Instant>& date, PhotoProperties& properties) {
    if (!date || properties.exif.dateTimeOriginal) {
        return;
    }
    const WallTime scene = LocalCalendar::components(*date);
    const bool hasBetter = isDayAlone(scene) && (isOnDay(properties.exif.dateTimeDigitized, scene) ||
                                                 isOnDay(properties.tiff.dateTime, scene));
    if (!hasBetter) {
        properties.exif.dateTimeOriginal = date;
    }
}

} // namespace lumeo
