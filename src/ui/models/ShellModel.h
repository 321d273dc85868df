#pragma once

#include "ui/models/WizardSteps.h"

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace lumeo {

class AppState;
class LocalizationManager;
class Preferences;

/// What the window shows around its screens: the steps of the wizard, the languages, the appearance, and the
/// commands that are available everywhere. Main thread only.
class ShellModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program")
    Q_PROPERTY(lumeo::WizardSteps* steps READ steps CONSTANT)
    Q_PROPERTY(int currentStep READ currentStep NOTIFY currentStepChanged)
    Q_PROPERTY(QString tint READ tint NOTIFY currentStepChanged)
    Q_PROPERTY(QStringList languages READ languages CONSTANT)
    Q_PROPERTY(int currentLanguage READ currentLanguage NOTIFY currentLanguageChanged)
    Q_PROPERTY(bool isDark READ isDark NOTIFY appearanceChanged)
    Q_PROPERTY(bool reducedMotion READ reducedMotion NOTIFY reducedMotionChanged)
    Q_PROPERTY(double textScale READ textScale NOTIFY textScaleChanged)
    Q_PROPERTY(bool isChangingFiles READ isChangingFiles NOTIFY isChangingFilesChanged)
    Q_PROPERTY(QString workText READ workText NOTIFY workTextChanged)

public:
    /// All must outlive the model.
    ShellModel(AppState& state, LocalizationManager& localization, Preferences& preferences,
               QObject* parent = nullptr);

    [[nodiscard]] WizardSteps* steps() { return &steps_; }
    [[nodiscard]] int currentStep() const;
    [[nodiscard]] QString tint() const; ///< the name of the current step's colour
    /// Each with its flag, in the order of the enumeration.
    [[nodiscard]] QStringList languages() const;
    [[nodiscard]] int currentLanguage() const; ///< its index in `languages`
    [[nodiscard]] bool isDark() const;
    [[nodiscard]] bool reducedMotion() const { return reducedMotion_; }
    [[nodiscard]] double textScale() const { return textScale_; } ///< from 0.9 to 1.5
    [[nodiscard]] bool isChangingFiles() const;                   ///< a run or an undo is in progress
    [[nodiscard]] QString workText() const;                       ///< its progress, in a few words

    Q_INVOKABLE void navigateTo(int step);
    Q_INVOKABLE void chooseLanguage(int language);
    Q_INVOKABLE void flipAppearance();
    /// Asks for more sources on their screen. Does nothing while a job uses the current ones.
    Q_INVOKABLE void addFolder();

public slots:
    /// The desktop's setting for motion.
    void setReducedMotion(bool reduced);
    /// The desktop's text size, 1 for the usual one. It is limited to what the window has space for.
    void setTextScale(double factor);

signals:
    void currentStepChanged();
    void currentLanguageChanged();
    void appearanceChanged();
    void reducedMotionChanged();
    void textScaleChanged();
    void isChangingFilesChanged();
    void workTextChanged();

private:
    AppState& state_;
    LocalizationManager& localization_;
    Preferences& preferences_;
    WizardSteps steps_;
    bool reducedMotion_ = false;
    double textScale_ = 1;
};

} // namespace lumeo
