#include "app/Preferences.h"

#include <QByteArray>
#include <QSettings>
#include <QString>
#include <QVariantList>

#include <algorithm>

namespace lumeo {
namespace {

// The keys are stored on users' disks and must not change.
constexpr const char* appearanceKey = "appearanceMode";
constexpr const char* defaultOperationKey = "defaultOperation";
constexpr const char* verifyTransfersKey = "verifyTransfers";
constexpr const char* listsChecksumsKey = "listsChecksums";
constexpr const char* performanceProfileKey = "performanceProfile";
constexpr const char* columnWidthsKey = "window/columns";
constexpr const char* lastOperationSummaryKey = "lastOperationSummary.v1";

QString keyText(const char* key) {
    return QString::fromLatin1(key);
}

/// Empty when the value is not a single text, such as a list.
QString storedText(const QSettings& settings, const char* key) {
    return settings.value(keyText(key)).toString();
}

template<class Enum>
std::optional<Enum> storedCase(const QSettings& settings, const char* key) {
    return fromRawValue<Enum>(storedText(settings, key).toStdString());
}

template<class Enum>
void store(QSettings& settings, const char* key, Enum value) {
    const std::string_view text = rawValue(value);
    settings.setValue(keyText(key), QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size())));
}

} // namespace

Preferences::Preferences(QSettings& settings, QObject* parent) : QObject(parent), settings_(settings) {}

AppAppearance Preferences::appearance() const {
    return storedCase<AppAppearance>(settings_, appearanceKey).value_or(AppAppearance::light);
}

void Preferences::setAppearance(AppAppearance appearance) {
    const bool changes = appearance != this->appearance();
    store(settings_, appearanceKey, appearance);
    if (changes) {
        emit appearanceChanged();
    }
}

OperationMode Preferences::defaultOperation() const {
    return storedCase<OperationMode>(settings_, defaultOperationKey).value_or(OperationMode::copy);
}

void Preferences::setDefaultOperation(OperationMode mode) {
    const bool changes = mode != defaultOperation();
    store(settings_, defaultOperationKey, mode);
    if (changes) {
        emit defaultOperationChanged();
    }
}

bool Preferences::verifyTransfers() const {
    // QVariant's own conversion is not used, because it reads an empty text or a list as false.
    return storedText(settings_, verifyTransfersKey) != QLatin1String("false");
}

void Preferences::setVerifyTransfers(bool verify) {
    const bool changes = verify != verifyTransfers();
    settings_.setValue(keyText(verifyTransfersKey), verify);
    if (changes) {
        emit verifyTransfersChanged();
    }
}

bool Preferences::listsChecksums() const {
    return storedText(settings_, listsChecksumsKey) == QLatin1String("true");
}

void Preferences::setListsChecksums(bool lists) {
    const bool changes = lists != listsChecksums();
    settings_.setValue(keyText(listsChecksumsKey), lists);
    if (changes) {
        emit listsChecksumsChanged();
    }
}

PerformanceProfile Preferences::performanceProfile() const {
    return storedCase<PerformanceProfile>(settings_, performanceProfileKey)
        .value_or(PerformanceProfile::autoProfile);
}

void Preferences::setPerformanceProfile(PerformanceProfile profile) {
    const bool changes = profile != performanceProfile();
    store(settings_, performanceProfileKey, profile);
    if (changes) {
        emit performanceProfileChanged();
    }
}

std::optional<LastOperationSummary> Preferences::lastOperationSummary() const {
    return decodeLastOperationSummary(
        settings_.value(keyText(lastOperationSummaryKey)).toByteArray().toStdString());
}

void Preferences::setLastOperationSummary(const LastOperationSummary& summary) {
    settings_.setValue(keyText(lastOperationSummaryKey), QByteArray::fromStdString(encode(summary)));
}

QList<int> Preferences::columnWidths() const {
    QList<int> widths;
    for (const QVariant& width : settings_.value(keyText(columnWidthsKey)).toList()) {
        widths.append(std::clamp(width.toInt(), 0, 2000));
    }
    return widths;
}

void Preferences::setColumnWidths(const QList<int>& widths) {
    settings_.setValue(keyText(columnWidthsKey), QVariantList(widths.begin(), widths.end()));
}

OrganizationPlan Preferences::newPlan() const {
    OrganizationPlan plan;
    plan.operationMode = defaultOperation();
    plan.verifyTransfers = verifyTransfers();
    plan.listsChecksums = listsChecksums();
    return plan;
}

} // namespace lumeo
