#pragma once

#include <QTranslator>

namespace lumeo {

class LocalizationManager;

/// Answers qsTrId() with the text for a key in the current language. When the language changes,
/// QQmlEngine::retranslate() updates everything on screen. Main thread only.
class KeyTranslator final : public QTranslator {
    Q_OBJECT

public:
    /// `localization` must outlive the translator.
    explicit KeyTranslator(const LocalizationManager& localization, QObject* parent = nullptr)
        : QTranslator(parent), localization_(localization) {}

    [[nodiscard]] bool isEmpty() const override { return false; }
    /// Texts with a context belong to Qt itself.
    [[nodiscard]] QString translate(const char* context, const char* sourceText, const char* disambiguation,
                                    int n) const override;

private:
    const LocalizationManager& localization_;
};

} // namespace lumeo
