#include "ui/kit/Symbols.h"

#include <QFontDatabase>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace lumeo {
namespace {

enum class Mark { none, cutOut, drawn };

struct SymbolEntry {
    std::u16string_view name;
    char16_t glyph = 0;
    char16_t mark = 0;
    Mark markStyle = Mark::none;
};

consteval SymbolEntry entry(std::u16string_view name, char16_t glyph) {
    return {.name = name, .glyph = glyph};
}

consteval SymbolEntry entry(std::u16string_view name, char16_t glyph, char16_t mark, Mark style) {
    return {.name = name, .glyph = glyph, .mark = mark, .markStyle = style};
}

// Glyphs that have several names or serve as marks.
constexpr char16_t check = 0xF12C;
constexpr char16_t checkCircle = 0xF5E0;
constexpr char16_t copies = 0xF18F;
constexpr char16_t cross = 0xF156;
constexpr char16_t exclamation = 0xF205;
constexpr char16_t folder = 0xF24B;
constexpr char16_t gear = 0xF493;
constexpr char16_t lock = 0xF33E;
constexpr char16_t photo = 0xF2E9;
constexpr char16_t shield = 0xF498;
constexpr char16_t star = 0xF4CE;
constexpr char16_t triangleAlert = 0xF026;

// Sorted by name.
constexpr std::array symbolTable{
    entry(u"arrow.clockwise", 0xF450),
    entry(u"arrow.left", 0xF04D),
    entry(u"arrow.right", 0xF054),
    entry(u"arrow.right.doc.on.clipboard", 0xF252),
    entry(u"arrow.triangle.2.circlepath", 0xF4E6),
    entry(u"arrow.uturn.backward", 0xF54D),
    entry(u"arrowshape.turn.up.right.fill", 0xF496),
    entry(u"calendar", 0xF0ED),
    entry(u"calendar.badge.exclamationmark", 0xF0EE, exclamation, Mark::drawn),
    entry(u"camera.fill", 0xF100),
    entry(u"chart.bar.xaxis", 0xF128),
    entry(u"checkmark", check),
    entry(u"checkmark.circle.fill", checkCircle),
    entry(u"checkmark.seal.fill", 0xF3C3, check, Mark::cutOut),
    entry(u"checkmark.shield.fill", shield, check, Mark::cutOut),
    entry(u"chevron.down", 0xF140),
    entry(u"chevron.right", 0xF142),
    entry(u"chevron.up", 0xF143),
    entry(u"circle", 0xF43D),
    entry(u"clock.arrow.circlepath", 0xF2DA),
    entry(u"desktopcomputer", 0xF379),
    entry(u"doc", 0xF214),
    entry(u"doc.on.clipboard", 0xF192),
    entry(u"doc.on.doc", copies),
    entry(u"doc.on.doc.fill", copies),
    entry(u"doc.stack", 0xF222),
    entry(u"doc.text", 0xF219),
    entry(u"doc.text.magnifyingglass", 0xF21E),
    entry(u"exclamationmark.circle.fill", 0xF028),
    entry(u"exclamationmark.triangle.fill", triangleAlert),
    entry(u"externaldrive.fill", 0xF2CA),
    entry(u"eye.fill", 0xF208),
    entry(u"eye.slash.fill", 0xF209),
    entry(u"film", 0xF230),
    entry(u"film.fill", 0xF230),
    entry(u"folder.badge.gearshape", folder, gear, Mark::cutOut),
    entry(u"folder.badge.plus", 0xF257),
    entry(u"folder.fill", folder),
    entry(u"folder.fill.badge.gearshape", folder, gear, Mark::cutOut),
    entry(u"gearshape", gear),
    entry(u"globe", 0xF5CA),
    entry(u"hand.raised.fill", 0xF5F9),
    entry(u"hourglass", 0xF51F),
    entry(u"icloud.slash", 0xF164),
    entry(u"info.circle.fill", 0xF2FC),
    entry(u"internaldrive.fill", 0xF48B),
    entry(u"largecircle.fill.circle", 0xF43E),
    entry(u"lock.fill", lock),
    entry(u"lock.shield.fill", shield, lock, Mark::cutOut),
    entry(u"magnifyingglass", 0xF349),
    entry(u"magnifyingglass.circle.fill", 0xF349),
    entry(u"moon.fill", 0xF594),
    entry(u"network.slash", 0xF319),
    entry(u"pause.fill", 0xF3E4),
    entry(u"person.crop.circle.badge.xmark", 0xF015),
    entry(u"photo", photo),
    entry(u"photo.fill", photo),
    entry(u"photo.stack.fill", 0xF2F9),
    entry(u"play.fill", 0xF40A),
    entry(u"plus", 0xF415),
    entry(u"questionmark.circle", 0xF625),
    entry(u"questionmark.circle.fill", 0xF2D7),
    entry(u"sparkle.magnifyingglass", 0xF349, star, Mark::drawn),
    entry(u"speedometer", 0xF4C5),
    entry(u"square.and.arrow.up", 0xF207),
    entry(u"sun.max.fill", 0xF599),
    entry(u"tablecells", 0xF4EB),
    entry(u"timer", 0xF51B),
    entry(u"xmark", cross),
    entry(u"xmark.circle.fill", 0xF159),
};
static_assert(std::ranges::is_sorted(symbolTable, {}, &SymbolEntry::name));

const SymbolEntry* find(const QString& name) {
    const std::u16string wanted = name.toStdU16String();
    const auto* place = std::ranges::lower_bound(symbolTable, wanted, {}, &SymbolEntry::name);
    return place != symbolTable.end() && place->name == wanted ? place : nullptr;
}

} // namespace

Symbols::Symbols(QObject* parent) : QObject(parent) {
    const int font = QFontDatabase::addApplicationFont(QStringLiteral(":/lumeo/symbols.ttf"));
    family_ = QFontDatabase::applicationFontFamilies(font).value(0);
}

QString Symbols::glyph(const QString& name) const {
    const auto* symbol = find(name);
    if (symbol == nullptr) {
        if (!name.isEmpty()) {
            qWarning("There is no symbol \"%s\"", qUtf8Printable(name));
        }
        return {};
    }
    return {QChar(symbol->glyph)};
}

QString Symbols::mark(const QString& name) const {
    const auto* symbol = find(name);
    return symbol != nullptr && symbol->mark != 0 ? QString(QChar(symbol->mark)) : QString();
}

bool Symbols::markIsCutOut(const QString& name) const {
    const auto* symbol = find(name);
    return symbol != nullptr && symbol->markStyle == Mark::cutOut;
}

QStringList Symbols::names() {
    QStringList all;
    for (const auto& symbol : symbolTable) {
        all.append(QString::fromUtf16(symbol.name.data(), static_cast<qsizetype>(symbol.name.size())));
    }
    return all;
}

} // namespace lumeo
