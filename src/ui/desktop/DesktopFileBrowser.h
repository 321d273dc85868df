#pragma once

#include "app/Desktop.h"

#include <QObject>

namespace lumeo {

/// The desktop's file browser. Where none answers to the common interface, whatever program opens folders.
class DesktopFileBrowser final : public QObject, public FileBrowser {
    Q_OBJECT

public:
    using QObject::QObject;

    void reveal(const FilePath& folder) override;
    void show(const FilePath& file) override;
    void open(const FilePath& file) override;

private:
    /// Calls `method` for `path`. Opens the folder `otherwise` when nobody answers.
    void ask(const QString& method, const FilePath& path, const FilePath& otherwise);
};

} // namespace lumeo
