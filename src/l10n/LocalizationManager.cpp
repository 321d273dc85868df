#include "l10n/LocalizationManager.h"

#include "l10n/LocalizationStrings.h"

#include <QSettings>

namespace lumeo {
namespace {

QString languageKey() {
    return QStringLiteral("appLanguage");
}

} // namespace

LocalizationManager::LocalizationManager(QSettings& settings, const QStringList& preferredLanguages,
                                         QObject* parent)
    : QObject(parent),
      settings_(settings),
      currentLanguage_(languageOfCode(settings.value(languageKey()).toString())
                           .value_or(languageFor(preferredLanguages))) {}

void LocalizationManager::setLanguage(AppLanguage language) {
    settings_.setValue(languageKey(), languageCode(language));
    if (language != currentLanguage_) {
        currentLanguage_ = language;
        emit currentLanguageChanged();
    }
}

QString LocalizationManager::localized(const QString& key) const {
    return LocalizationStrings::text(key, currentLanguage_);
}

} // namespace lumeo
