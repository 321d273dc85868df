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
class Preferences;
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
    /// As the user left them. Empty when none was changed; 0 for a column with the usual width.
    Q_PROPERTY(QList<int> columnWidths READ columnWidths WRITE setColumnWidths NOTIFY columnWidthsChanged)
    Q_PROPERTY(bool isMove READ isMove NOTIFY planChanged)
    Q_PROPERTY(bool canStart READ canStart NOTIFY readinessChanged)
    Q_PROPERTY(QString missing READ missing NOTIFY readinessChanged)
    /// What happens before the run can start, such as examining a slow destination. Empty when nothing does.
    Q_PROPERTY(QString starting READ starting NOTIFY readinessChanged)
    Q_PROPERTY(bool isAnalyzed READ isAnalyzed NOTIFY analysisChanged)
    Q_PROPERTY(bool isAnalyzing READ isAnalyzing NOTIFY analysisChanged)
    Q_PROPERTY(QString analysis READ analysis NOTIFY analysisChanged) ///< what a start would do then
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
                 FileBrowser& fileBrowser, Preferences& preferences, QObject* parent = nullptr);

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
    [[nodiscard]] QList<int> columnWidths() const;
    void setColumnWidths(const QList<int>& widths);
    [[nodiscard]] bool isMove() const;
    [[nodiscard]] bool canStart() const;
    [[nodiscard]] QString missing() const; ///< why the run cannot start; empty when it can
    [[nodiscard]] QString starting() const;
    [[nodiscard]] bool isAnalyzed() const;
    [[nodiscard]] bool isAnalyzing() const;
    [[nodiscard]] QString analysis() const;
    [[nodiscard]] bool showMoveConfirmation() const { return showMoveConfirmation_; }
    void setShowMoveConfirmation(bool show);
    [[nodiscard]] bool isPlanning() const;
    [[nodiscard]] double planningFraction() const;
    [[nodiscard]] QString planningText() const;
    [[nodiscard]] QString refusal() const;
    [[nodiscard]] QString cancellation() const;

    Q_INVOKABLE void inspect(int row); ///< clamps to the nearest row; does nothing in an empty list
    /// Inspects the next row whose name starts with `beginning`. The search starts at the current row and
    /// wraps round.
    Q_INVOKABLE void seek(const QString& beginning);
    Q_INVOKABLE void back();
    Q_INVOKABLE void start(); ///< copies at once, asks before it moves
    Q_INVOKABLE void analyzeDuplicates();
    Q_INVOKABLE void cancelStart();    ///< while it is `starting`
    Q_INVOKABLE void confirmMove();    ///< does nothing unless the question was asked
    Q_INVOKABLE void cancelPlanning(); ///< and goes back to the previous screen

signals:
    void searchTextChanged();
    void selectedFilterChanged();
    void textsChanged();
    void listedChanged();
    void currentRowChanged();
    void columnWidthsChanged();
    void planChanged();
    void readinessChanged();
    void analysisChanged();
    void showMoveConfirmationChanged();
    void planningProgressChanged();
    void outcomeChanged();

private:
    void beginAnew();
    void takeItems();
    void followInspectedItem();
    /// The other identical files of the inspected one, and what a run does with each.
    [[nodiscard]] QVariantList twins() const;

    AppState& state_;
    Preferences& preferences_;
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
