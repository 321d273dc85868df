#pragma once

#include <QTranslator>

namespace lumeo {

class LocalizationManager;

/// Answers qsTrId() with the text for a key in the language spoken now. Once that changes,
/// QQmlEngine::retranslate() brings the new texts to everything that is on screen. Main thread only.
class KeyTranslator final : public QTranslator {
    Q_OBJECT

public:
    /// `localization` must outlive the translator.
    explicit KeyTranslator(const LocalizationManager& localization, QObject* parent = nullptr)
        : QTranslator(parent), localization_(localization) {}

    [[nodiscard]] bool isEmpty() const override { return false; }
    /// Texts that have a context are not ours: they are the toolkit's own.
    [[nodiscard]] QString translate(const char* context, const char* sourceText, const char* disambiguation,
                                    int n) const override;

private:
    const LocalizationManager& localization_;
};

} // namespace lumeo
