#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace lumeo {

class Preferences;

/// The stored preferences in the form that the settings window needs. A choice is its index in a list, and
/// the lists have the order of the enumerations. Main thread only.
class SettingsModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program")
    Q_PROPERTY(int appearance READ appearance WRITE setAppearance NOTIFY appearanceChanged)
    Q_PROPERTY(bool isDark READ isDark NOTIFY appearanceChanged)
    Q_PROPERTY(
        int defaultOperation READ defaultOperation WRITE setDefaultOperation NOTIFY defaultOperationChanged)
    Q_PROPERTY(
        bool verifyTransfers READ verifyTransfers WRITE setVerifyTransfers NOTIFY verifyTransfersChanged)
    Q_PROPERTY(bool listsChecksums READ listsChecksums WRITE setListsChecksums NOTIFY listsChecksumsChanged)
    Q_PROPERTY(int performanceProfile READ performanceProfile WRITE setPerformanceProfile NOTIFY
                   performanceProfileChanged)

public:
    /// `preferences` must outlive the model.
    explicit SettingsModel(Preferences& preferences, QObject* parent = nullptr);

    [[nodiscard]] int appearance() const;
    void setAppearance(int appearance);
    [[nodiscard]] bool isDark() const;
    [[nodiscard]] int defaultOperation() const;
    void setDefaultOperation(int operation);
    [[nodiscard]] bool verifyTransfers() const;
    void setVerifyTransfers(bool verify);
    [[nodiscard]] bool listsChecksums() const;
    void setListsChecksums(bool lists);
    [[nodiscard]] int performanceProfile() const;
    void setPerformanceProfile(int profile);

signals:
    void appearanceChanged();
    void defaultOperationChanged();
    void verifyTransfersChanged();
    void listsChecksumsChanged();
    void performanceProfileChanged();

private:
    Preferences& preferences_;
};

} // namespace lumeo
