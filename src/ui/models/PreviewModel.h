#pragma once

#include "ui/models/InspectorModel.h"
#include "ui/models/PreviewFilter.h"
#include "ui/models/PreviewRows.h"

#include <QObject>
#include <QString>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

namespace lumeo {

class AppState;
class LocalizationManager;
class ThumbnailService;

/// The preview: every item with its date and its place, the search and the filter, the inspected item, and
/// the start of the run. It starts fresh each time the wizard reaches it.
class PreviewModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program")
    Q_PROPERTY(lumeo::PreviewRows* rows READ rows CONSTANT)
    Q_PROPERTY(lumeo::InspectorModel* inspector READ inspector CONSTANT)
    Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY searchTextChanged)
    Q_PROPERTY(
        QString selectedFilter READ selectedFilter WRITE setSelectedFilter NOTIFY selectedFilterChanged)
    Q_PROPERTY(QVariantList filters READ filters NOTIFY textsChanged) ///< {name, text, count}
    Q_PROPERTY(QVariantList chips READ chips NOTIFY textsChanged)     ///< {text, tint}
    /// "12 / 100,000" while the search or the filter hides rows. Empty otherwise.
    Q_PROPERTY(QString listed READ listed NOTIFY listedChanged)
    /// The row of the inspected item. -1 when there is none or it is not listed.
    Q_PROPERTY(int currentRow READ currentRow NOTIFY currentRowChanged)
    Q_PROPERTY(bool isMove READ isMove NOTIFY planChanged)
    Q_PROPERTY(bool canStart READ canStart NOTIFY readinessChanged)
    Q_PROPERTY(bool showMoveConfirmation READ showMoveConfirmation WRITE setShowMoveConfirmation NOTIFY
                   showMoveConfirmationChanged)
    Q_PROPERTY(bool isPlanning READ isPlanning NOTIFY readinessChanged)
    Q_PROPERTY(double planningFraction READ planningFraction NOTIFY planningProgressChanged)
    Q_PROPERTY(QString planningText READ planningText NOTIFY planningProgressChanged)
    /// Why the last run was refused. Empty when it was not.
    Q_PROPERTY(QString refusal READ refusal NOTIFY outcomeChanged)
    /// What a cancelled run has done. Empty when the last run was not cancelled.
    Q_PROPERTY(QString cancellation READ cancellation NOTIFY outcomeChanged)

public:
    /// All parameters must outlive this object.
    PreviewModel(AppState& state, const LocalizationManager& texts, ThumbnailService& thumbnails,
                 QObject* parent = nullptr);

    [[nodiscard]] PreviewRows* rows() { return &rows_; }
    [[nodiscard]] InspectorModel* inspector() { return &inspector_; }
    [[nodiscard]] const QString& searchText() const { return searchText_; }
    void setSearchText(const QString& text);
    [[nodiscard]] const QString& selectedFilter() const { return selectedFilter_; }
    void setSelectedFilter(const QString& name); ///< an unknown name filters nothing
    [[nodiscard]] QVariantList filters() const;
    [[nodiscard]] QVariantList chips() const;
    [[nodiscard]] QString listed() const;
    [[nodiscard]] int currentRow() const;
    [[nodiscard]] bool isMove() const;
    [[nodiscard]] bool canStart() const;
    [[nodiscard]] bool showMoveConfirmation() const { return showMoveConfirmation_; }
    void setShowMoveConfirmation(bool show);
    [[nodiscard]] bool isPlanning() const;
    [[nodiscard]] double planningFraction() const;
    [[nodiscard]] QString planningText() const;
    [[nodiscard]] QString refusal() const;
    [[nodiscard]] QString cancellation() const;

    Q_INVOKABLE void inspect(int row); ///< clamps to the nearest row; does nothing in an empty list
    Q_INVOKABLE void back();
    Q_INVOKABLE void start();          ///< copies at once, asks before it moves
    Q_INVOKABLE void confirmMove();    ///< does nothing unless the question was asked
    Q_INVOKABLE void cancelPlanning(); ///< and goes back to the previous screen

signals:
    void searchTextChanged();
    void selectedFilterChanged();
    void textsChanged();
    void listedChanged();
    void currentRowChanged();
    void planChanged();
    void readinessChanged();
    void showMoveConfirmationChanged();
    void planningProgressChanged();
    void outcomeChanged();

private:
    void beginAnew();
    void takeItems();
    void followInspectedItem();

    AppState& state_;
    const LocalizationManager& texts_;
    PreviewRows rows_;
    InspectorModel inspector_;
    PreviewCounts counts_;
    std::size_t inspectedIndex_ = 0; ///< in the catalogue, while the inspector is open
    QString searchText_;
    QString selectedFilter_;
    bool showMoveConfirmation_ = false;
};

} // namespace lumeo
