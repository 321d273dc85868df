#include "ShellModel.h"
namespace lumeo {
ShellModel::ShellModel(AppState& state, QObject* parent) : QObject(parent), state_(state) {}
}
