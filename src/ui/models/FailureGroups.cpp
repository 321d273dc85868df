#include "ui/models/FailureGroups.h"

#include "ui/models/RunTexts.h"
#include "ui/models/ShownText.h"

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace lumeo {
namespace {

/// Messages with the same reason have the same words, except for the file's name at the start.
std::string withoutName(const std::string& message) {
    const std::string_view begin = "“";
    const std::string_view end = "” ";
    const std::size_t close = message.find(end);
    return message.starts_with(begin) && close != std::string::npos ? message.substr(close + end.size())
                                                                    : message;
}

} // namespace

QVariantMap FailureGroup::shown() const {
    constexpr qsizetype mostNamed = 3;
    QStringList first = names.mid(0, mostNamed);
    if (names.size() > mostNamed) {
        first.append(QStringLiteral("…"));
    }
    return {{QStringLiteral("sentence"), sentence},
            {QStringLiteral("count"), fileCountText(names.size())},
            {QStringLiteral("names"), first.join(QStringLiteral(", "))}};
}

QStringList FailureGroup::lines() const {
    QStringList lines{sentence};
    for (const QString& path : paths) {
        lines.append(QStringLiteral("    ") + path);
    }
    return lines;
}

std::vector<FailureGroup> failureGroups(const OperationManifest* manifest) {
    std::map<std::string, FailureGroup> byReason;
    if (manifest != nullptr) {
        for (const FileTransactionItem& record : manifest->items) {
            if (record.status == TransactionStatus::failed) {
                const std::string reason =
                    withoutName(record.errorMessage.value_or("The reason is not known."));
                FailureGroup& group = byReason[reason];
                group.sentence = asSentence(reason);
                group.names.append(shownText(record.originalPath.lastComponent()));
                group.paths.append(shownPath(record.originalPath));
            }
        }
    }
    std::vector<FailureGroup> groups;
    groups.reserve(byReason.size());
    for (auto& [reason, group] : byReason) {
        groups.push_back(std::move(group));
    }
    std::ranges::stable_sort(groups, std::ranges::greater{},
                             [](const FailureGroup& group) { return group.names.size(); });
    return groups;
}

} // namespace lumeo
