#pragma once

#include "model/MediaItem.h"
#include "model/OrganizationPlan.h"
#include "ui/models/DestinationTexts.h"

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

/// The third screen: the structure of the archive, and whether its destination has enough space.
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

    Q_PROPERTY(lumeo::DestinationTexts destination READ destination NOTIFY destinationChanged)
    Q_PROPERTY(bool isMove READ isMove WRITE setMove NOTIFY planChanged)
    Q_PROPERTY(QStringList unknownDatePolicies READ unknownDatePolicies CONSTANT)
    Q_PROPERTY(int unknownDatePolicy READ unknownDatePolicy WRITE setUnknownDatePolicy NOTIFY planChanged)
    Q_PROPERTY(QStringList duplicatePolicies READ duplicatePolicies CONSTANT)
    Q_PROPERTY(int duplicatePolicy READ duplicatePolicy WRITE setDuplicatePolicy NOTIFY planChanged)
    Q_PROPERTY(bool verifyTransfers READ verifyTransfers WRITE setVerifyTransfers NOTIFY planChanged)

    /// False during a run or an undo, when changes are not accepted.
    Q_PROPERTY(bool isAnalyzed READ isAnalyzed NOTIFY analysisChanged)
    Q_PROPERTY(bool isAnalyzing READ isAnalyzing NOTIFY analysisChanged)
    Q_PROPERTY(QString patternProblem READ patternProblem NOTIFY planChanged)
    Q_PROPERTY(bool canEdit READ canEdit NOTIFY canEditChanged)
    Q_PROPERTY(bool canPreview READ canPreview NOTIFY canEditChanged)
    Q_PROPERTY(bool isPlanning READ isPlanning NOTIFY planningChanged)
    Q_PROPERTY(double plannedShare READ plannedShare NOTIFY planningChanged)

public:
    /// Both must outlive the model.
    OrganizationModel(AppState& state, const LocalizationManager& localization, QObject* parent = nullptr);

    /// The screen refers to presets and policies by their index in these lists.
    [[nodiscard]] QStringList presetExamples() const;
    [[nodiscard]] QStringList unknownDatePolicies() const;
    [[nodiscard]] QStringList duplicatePolicies() const;

    [[nodiscard]] int preset() const;
    void setPreset(int preset);
    [[nodiscard]] bool isCustom() const;
    [[nodiscard]] QString customTemplate() const;
    void setCustomTemplate(const QString& text);

    /// The name of a scanned file, and its path in the archive under the custom template. Empty when nothing
    /// was scanned.
    [[nodiscard]] QString exampleBefore() const { return exampleBefore_; }
    [[nodiscard]] QString exampleAfter() const { return exampleAfter_; }

    /// The two parts of the translated hint: its words, and the tags after them.
    [[nodiscard]] QString tagsLabel() const;
    [[nodiscard]] QStringList tags() const;

    [[nodiscard]] const DestinationTexts& destination() const { return destination_; }

    [[nodiscard]] bool isMove() const;
    void setMove(bool isMove);
    [[nodiscard]] int unknownDatePolicy() const;
    void setUnknownDatePolicy(int policy);
    [[nodiscard]] int duplicatePolicy() const;
    void setDuplicatePolicy(int policy);
    [[nodiscard]] bool verifyTransfers() const;
    void setVerifyTransfers(bool verify);

    /// A problem of the pattern, such as an unknown tag. Empty when there is none.
    [[nodiscard]] QString patternProblem() const;
    [[nodiscard]] bool isAnalyzed() const; ///< all duplicates are known
    [[nodiscard]] bool isAnalyzing() const;

    [[nodiscard]] bool canEdit() const;
    [[nodiscard]] bool canPreview() const { return destination_.isChosen && canEdit(); }
    [[nodiscard]] bool isPlanning() const;
    [[nodiscard]] double plannedShare() const; ///< from 0 to 1

    Q_INVOKABLE void chooseDestination();
    Q_INVOKABLE void analyzeDuplicates();
    Q_INVOKABLE void goBack();
    Q_INVOKABLE void previewChanges();

signals:
    void planChanged();
    void canEditChanged();
    void analysisChanged();
    void exampleChanged();
    void languageChanged();
    void destinationChanged();
    void planningChanged();

private:
    void edit(const std::function<void(OrganizationPlan&)>& change);
    void showPlan();
    void showItems();
    void estimate();
    void showDestination();
    void showExample();

    AppState& state_;
    const LocalizationManager& localization_;
    DestinationTexts destination_;
    std::int64_t estimatedBytes_ = 0;
    DuplicatePolicy estimatedUnder_ = DuplicatePolicy::skipDuplicates;
    std::optional<MediaItem> exampleItem_;
    QString exampleBefore_;
    QString exampleAfter_;
};

} // namespace lumeo
