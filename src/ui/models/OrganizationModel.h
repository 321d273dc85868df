#pragma once

#include "model/MediaItem.h"
#include "model/OrganizationPlan.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <cstdint>
#include <functional>
#include <optional>

namespace lumeo {

class AppState;
class LocalizationManager;

/// The third screen: how the archive is to be built, and whether its destination has room for it.
class OrganizationModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program")
    Q_PROPERTY(QStringList presetExamples READ presetExamples CONSTANT)
    Q_PROPERTY(int preset READ preset WRITE setPreset NOTIFY planChanged)
    Q_PROPERTY(bool isCustom READ isCustom NOTIFY planChanged)
    Q_PROPERTY(QString customTemplate READ customTemplate WRITE setCustomTemplate NOTIFY planChanged)
    Q_PROPERTY(QString exampleBefore READ exampleBefore NOTIFY exampleChanged)
    Q_PROPERTY(QString exampleAfter READ exampleAfter NOTIFY exampleChanged)
    Q_PROPERTY(QString tagsLabel READ tagsLabel NOTIFY languageChanged)
    Q_PROPERTY(QStringList tags READ tags NOTIFY languageChanged)

    Q_PROPERTY(bool hasDestination READ hasDestination NOTIFY planChanged)
    Q_PROPERTY(QString destinationName READ destinationName NOTIFY destinationChanged)
    Q_PROPERTY(QString destinationPath READ destinationPath NOTIFY destinationChanged)
    Q_PROPERTY(QString destinationSymbol READ destinationSymbol NOTIFY destinationChanged)
    Q_PROPERTY(QString capacityLine READ capacityLine NOTIFY capacityChanged)
    Q_PROPERTY(bool lacksRoom READ lacksRoom NOTIFY capacityChanged)
    Q_PROPERTY(bool hasCapacity READ hasCapacity NOTIFY capacityChanged)
    Q_PROPERTY(double usedShare READ usedShare NOTIFY capacityChanged)
    Q_PROPERTY(double addedShare READ addedShare NOTIFY capacityChanged)

    Q_PROPERTY(bool isMove READ isMove WRITE setMove NOTIFY planChanged)
    Q_PROPERTY(QStringList unknownDatePolicies READ unknownDatePolicies CONSTANT)
    Q_PROPERTY(int unknownDatePolicy READ unknownDatePolicy WRITE setUnknownDatePolicy NOTIFY planChanged)
    Q_PROPERTY(QStringList duplicatePolicies READ duplicatePolicies CONSTANT)
    Q_PROPERTY(int duplicatePolicy READ duplicatePolicy WRITE setDuplicatePolicy NOTIFY planChanged)
    Q_PROPERTY(bool verifyTransfers READ verifyTransfers WRITE setVerifyTransfers NOTIFY planChanged)

    /// False during a run or an undo, which would not take a change over.
    Q_PROPERTY(bool canEdit READ canEdit NOTIFY canEditChanged)
    Q_PROPERTY(bool canPreview READ canPreview NOTIFY canEditChanged)
    Q_PROPERTY(bool isPlanning READ isPlanning NOTIFY planningChanged)
    Q_PROPERTY(double plannedShare READ plannedShare NOTIFY planningChanged)

public:
    /// Both must outlive the model.
    OrganizationModel(AppState& state, const LocalizationManager& localization, QObject* parent = nullptr);

    /// Presets and policies are known to the screen by their place in these lists.
    [[nodiscard]] QStringList presetExamples() const;
    [[nodiscard]] QStringList unknownDatePolicies() const;
    [[nodiscard]] QStringList duplicatePolicies() const;

    [[nodiscard]] int preset() const;
    void setPreset(int preset);
    [[nodiscard]] bool isCustom() const;
    [[nodiscard]] QString customTemplate() const;
    void setCustomTemplate(const QString& text);

    /// The name of a scanned file, and where in the archive the custom template would put it; empty
    /// when nothing was scanned.
    [[nodiscard]] QString exampleBefore() const { return exampleBefore_; }
    [[nodiscard]] QString exampleAfter() const { return exampleAfter_; }

    /// The translated hint, taken apart: its words, and the tags that follow them.
    [[nodiscard]] QString tagsLabel() const;
    [[nodiscard]] QStringList tags() const;

    [[nodiscard]] bool hasDestination() const;
    [[nodiscard]] QString destinationName() const;
    [[nodiscard]] QString destinationPath() const;
    [[nodiscard]] QString destinationSymbol() const;
    [[nodiscard]] QString capacityLine() const;
    [[nodiscard]] bool lacksRoom() const; ///< false while the free space is unknown
    [[nodiscard]] bool hasCapacity() const;
    [[nodiscard]] double usedShare() const; ///< of the whole volume, as addedShare
    [[nodiscard]] double addedShare() const;

    [[nodiscard]] bool isMove() const;
    void setMove(bool isMove);
    [[nodiscard]] int unknownDatePolicy() const;
    void setUnknownDatePolicy(int policy);
    [[nodiscard]] int duplicatePolicy() const;
    void setDuplicatePolicy(int policy);
    [[nodiscard]] bool verifyTransfers() const;
    void setVerifyTransfers(bool verify);

    [[nodiscard]] bool canEdit() const;
    [[nodiscard]] bool canPreview() const { return hasDestination() && canEdit(); }
    [[nodiscard]] bool isPlanning() const;
    [[nodiscard]] double plannedShare() const; ///< from 0 to 1

    Q_INVOKABLE void chooseDestination();
    Q_INVOKABLE void goBack();
    Q_INVOKABLE void previewChanges();

signals:
    void planChanged();
    void canEditChanged();
    void exampleChanged();
    void languageChanged();
    void destinationChanged();
    void capacityChanged();
    void planningChanged();

private:
    void edit(const std::function<void(OrganizationPlan&)>& change);
    void showPlan();
    void showItems();
    void estimate();
    void showExample();

    AppState& state_;
    const LocalizationManager& localization_;
    std::int64_t estimatedBytes_ = 0;
    DuplicatePolicy estimatedUnder_ = DuplicatePolicy::skipDuplicates;
    std::optional<MediaItem> exampleItem_;
    QString exampleBefore_;
    QString exampleAfter_;
};

} // namespace lumeo
