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
};

} // namespace lumeo
