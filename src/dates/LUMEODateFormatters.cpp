#include "dates/LUMEODateFormatters.h"

#include "platform/TextFormat.h"

namespace lumeo {

std::string LUMEODateFormatters::formattedFully(std::optional<Instant> date) {
    return date ? TextFormat::date(*date, DateStyle::mediumStyle, DateStyle::mediumStyle) : "Unknown";
}

std::string LUMEODateFormatters::formattedMedium(std::optional<Instant> date) {
    return date ? TextFormat::date(*date, DateStyle::mediumStyle, DateStyle::none) : "Unknown";
}

std::string LUMEODateFormatters::formattedShort(std::optional<Instant> date) {
    return date ? TextFormat::date(*date, DateStyle::shortStyle, DateStyle::shortStyle) : "—";
}

} // namespace lumeo
