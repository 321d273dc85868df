#pragma once

#include "l10n/AppLanguage.h"

#include <QObject>
#include <QString>
#include <QStringList>

class QSettings;

namespace lumeo {

/// The current language of the interface and its texts. The program has one manager, which every screen
/// watches. Main thread only.
class LocalizationManager : public QObject {
    Q_OBJECT
    Q_PROPERTY(lumeo::AppLanguage currentLanguage READ currentLanguage WRITE setLanguage NOTIFY
                   currentLanguageChanged)

public:
    /// Starts in the language stored in the settings, which must outlive this object. If none of our
    /// languages is stored, it starts in the one for the preferred languages (best first), without storing
    /// it.
    explicit LocalizationManager(QSettings& settings,
                                 const QStringList& preferredLanguages = systemPreferredLanguages(),
                                 QObject* parent = nullptr);

    [[nodiscard]] AppLanguage currentLanguage() const { return currentLanguage_; }

    /// Changes the language and stores it as the user's choice, even if it is the current language already.
    void setLanguage(AppLanguage language);

    /// The text for a key in the current language; see LocalizationStrings::text() for missing texts.
    [[nodiscard]] Q_INVOKABLE QString localized(const QString& key) const;

signals:
    void currentLanguageChanged();

private:
    QSettings& settings_;
    AppLanguage currentLanguage_;
};

} // namespace lumeo
