#include "ui/desktop/DesktopSavePanel.h"

#include "ui/desktop/PortalRequest.h"
#include "ui/desktop/QuickDialog.h"

#include <QUrl>

#include <utility>

namespace lumeo {

void DesktopSavePanel::choose(const SaveRequest& request, Answer answer) {
    const QVariantMap options{{QStringLiteral("accept_label"), request.prompt},
                              {QStringLiteral("current_name"), request.defaultName},
                              {QStringLiteral("modal"), true}};
    const auto answerPortal = [answer](const QStringList& uris) {
        answer(uris.isEmpty() ? std::nullopt : FilePath::fromFileUrl(uris.front().toStdString()));
    };
    const auto askToolkit = [this, request, answer] {
        const QUrl proposed = QUrl::fromEncoded(
            QByteArray::fromStdString(FilePath::standardized(request.defaultName.toStdString()).fileUrl()));
        const QVariantMap properties{{QStringLiteral("title"), request.prompt},
                                     {QStringLiteral("acceptLabel"), request.prompt},
                                     {QStringLiteral("defaultSuffix"), request.suffix},
                                     {QStringLiteral("proposed"), proposed}};
        QuickDialog::open(
            engine_, QStringLiteral("SavePicker"), properties, window_,
            [answer](const QUrl& url) { answer(FilePath::fromFileUrl(url.toEncoded().toStdString())); },
            this);
    };
    PortalRequest::ask(QStringLiteral("SaveFile"), request.prompt, options, window_, answerPortal, askToolkit,
                       this);
}

} // namespace lumeo
