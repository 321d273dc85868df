#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace lumeo {

class AppState;

/// What the window shows around its screens: the steps of the wizard and the utilities of the header.
class ShellModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program")

public:
    explicit ShellModel(AppState& state, QObject* parent = nullptr);

private:
    AppState& state_;
};

} // namespace lumeo
