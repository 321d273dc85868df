#include "app/AppState.h"

namespace lumeo {

AppState::AppState(const AppEnvironment& environment, QObject* parent)
    : QObject(parent), environment_(environment) {}

AppState::~AppState() = default;

} // namespace lumeo
