#include "ui/desktop/DesktopFolderChooser.h"

#include "ui/desktop/PortalRequest.h"
#include "ui/desktop/QuickDialog.h"

#include <QUrl>

#include <utility>

namespace lumeo {

void DesktopFolderChooser::choose(const FolderRequest& request, Answer answer) {
    const QVariantMap options{{QStringLiteral("accept_label"), request.prompt},
                              {QStringLiteral("multiple"), request.allowsSeveral},
                              {QStringLiteral("directory"), true},
                              {QStringLiteral("modal"), true}};
    const auto answerPortal = [answer](const QStringList& uris) {
        std::vector<FilePath> folders;
        for (const QString& uri : uris) {
            if (auto folder = FilePath::fromFileUrl(uri.toStdString())) {
                folders.push_back(*std::move(folder));
            }
        }
        answer(std::move(folders));
    };
    const auto askToolkit = [this, request, answer] {
        const QVariantMap properties{{QStringLiteral("title"), request.message},
                                     {QStringLiteral("acceptLabel"), request.prompt}};
        QuickDialog::open(
            engine_, QStringLiteral("FolderPicker"), properties, window_,
            [answer](const QUrl& url) {
                const auto folder = FilePath::fromFileUrl(url.toEncoded().toStdString());
                answer(folder ? std::vector{*folder} : std::vector<FilePath>());
            },
            this);
    };
    PortalRequest::ask(QStringLiteral("OpenFile"), request.message, options, window_, answerPortal,
                       askToolkit, this);
}

} // namespace lumeo
