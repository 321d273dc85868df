#include "ui/models/SettingsModel.h"

#include "app/Preferences.h"

namespace lumeo {

SettingsModel::SettingsModel(Preferences& preferences, QObject* parent)
    : QObject(parent), preferences_(preferences) {
    connect(&preferences, &Preferences::appearanceChanged, this, &SettingsModel::appearanceChanged);
    connect(&preferences, &Preferences::defaultOperationChanged, this,
            &SettingsModel::defaultOperationChanged);
    connect(&preferences, &Preferences::verifyTransfersChanged, this, &SettingsModel::verifyTransfersChanged);
    connect(&preferences, &Preferences::listsChecksumsChanged, this, &SettingsModel::listsChecksumsChanged);
    connect(&preferences, &Preferences::performanceProfileChanged, this,
            &SettingsModel::performanceProfileChanged);
}

int SettingsModel::appearance() const {
    return static_cast<int>(preferences_.appearance());
}

void SettingsModel::setAppearance(int appearance) {
    preferences_.setAppearance(static_cast<AppAppearance>(appearance));
}

bool SettingsModel::isDark() const {
    return preferences_.appearance() == AppAppearance::dark;
}

int SettingsModel::defaultOperation() const {
    return static_cast<int>(preferences_.defaultOperation());
}

void SettingsModel::setDefaultOperation(int operation) {
    preferences_.setDefaultOperation(static_cast<OperationMode>(operation));
}

bool SettingsModel::verifyTransfers() const {
    return preferences_.verifyTransfers();
}

void SettingsModel::setVerifyTransfers(bool verify) {
    preferences_.setVerifyTransfers(verify);
}

bool SettingsModel::listsChecksums() const {
    return preferences_.listsChecksums();
}

void SettingsModel::setListsChecksums(bool lists) {
    preferences_.setListsChecksums(lists);
}

int SettingsModel::performanceProfile() const {
    return static_cast<int>(preferences_.performanceProfile());
}

void SettingsModel::setPerformanceProfile(int profile) {
    preferences_.setPerformanceProfile(static_cast<PerformanceProfile>(profile));
}

} // namespace lumeo
