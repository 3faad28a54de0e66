#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <QTemporaryDir>
#include <gmock/gmock.h>

#include <component/settings_manager/i_settings_manager.h>

#include "child.h"

using settings_manager::Setting;
using List = Setting::List;
using Map = Setting::Map;

/// The settings service with a database, in a rendezvous of its own, in memory: a flush to a disk
/// takes longer than all else, and is not what a killed process lacks.
class ServiceFixture : public testing::Test
{
protected:
    ServiceFixture();

    void Start();
    void StartAndWait();

    /// Runs `tvoctl settings`. @returns what it has printed; expects that it succeeds
    static std::string RunTool(std::vector<std::string> arguments);

    std::unique_ptr<support::Process> service;
    const QTemporaryDir temporary{"/dev/shm/settings-XXXXXX"};
    const std::filesystem::path folder = temporary.path().toStdString();
};

// What follows is for children.

using Manager = std::shared_ptr<settings_manager::ISettingsManager>;

/// @returns null if the service went away meanwhile
Manager Connect();

/// One of the faces of a manager.
template <class Face>
Face& As(const Manager& manager)
{
    return dynamic_cast<Face&>(*manager);
}
