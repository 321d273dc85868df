#include "ui/models/SourcesModel.h"

#include "app/AppState.h"
#include "l10n/LocalizationManager.h"
#include "ui/models/ShownText.h"

#include <string_view>
#include <vector>

namespace lumeo {
namespace {

/// The files and folders of a list of URLs, one on each line. A line that starts with "#" is a comment.
std::vector<FilePath> pathsOf(const QByteArray& uriList) {
    std::vector<FilePath> paths;
    for (const auto& line : uriList.split('\n')) {
        const auto trimmed = line.trimmed();
        const std::string_view url(trimmed.constData(), static_cast<std::size_t>(trimmed.size()));
        if (auto path = FilePath::fromFileUrl(url)) {
            paths.push_back(std::move(*path));
        }
    }
    return paths;
}

} // namespace

SourcesModel::SourcesModel(AppState& state, const LocalizationManager& localization, QObject* parent)
    : QObject(parent), state_(state), localization_(localization), history_(state, localization) {
    connect(&state_, &AppState::sourcesChanged, this, &SourcesModel::showSources);
    connect(&state_, &AppState::lastOperationSummaryChanged, this, &SourcesModel::showLastOperation);
    connect(this, &SourcesModel::sourcesChanged, this, &SourcesModel::canScanChanged);
    connect(&state_, &AppState::isProcessingChanged, this, &SourcesModel::canScanChanged);
    connect(&state_, &AppState::isUndoingChanged, this, &SourcesModel::canScanChanged);
    connect(&localization_, &LocalizationManager::currentLanguageChanged, this,
            &SourcesModel::showLastOperation);
    showSources();
    showLastOperation();
}

QString SourcesModel::countText() const {
    return shownNumber(count());
}

bool SourcesModel::canScan() const {
    return count() > 0 && !state_.isChangingFiles();
}

QString SourcesModel::missing() const {
    if (state_.isChangingFiles()) {
        return QStringLiteral("Files are being organized or taken back at this moment.");
    }
    return count() > 0 ? QString() : QStringLiteral("Add a folder or a drive first.");
}

bool SourcesModel::takes(const QByteArray& uriList) const {
    return !pathsOf(uriList).empty();
}

void SourcesModel::drop(const QByteArray& uriList) {
    for (const auto& path : pathsOf(uriList)) {
        state_.addSource(path);
    }
}

void SourcesModel::chooseFolders() {
    state_.promptAddFolderPanel();
}

void SourcesModel::remove(int row) {
    if (row >= 0 && row < count()) {
        state_.removeSource(cards_.source(row).id);
    }
}

void SourcesModel::clear() {
    state_.clearSources();
}

void SourcesModel::scan() {
    state_.startScan();
}

void SourcesModel::showSources() {
    cards_.show(state_);
    emit sourcesChanged();
}

void SourcesModel::showLastOperation() {
    lastOperation_ = LastOperationTexts::of(state_.lastOperationSummary(), localization_);
    emit lastOperationChanged();
}

} // namespace lumeo
