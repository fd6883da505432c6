#pragma once

#include "platform/native/native_platform.h"
#include "repository/relationship_builder.h"
#include "repository/repository.h"
#include "support/definition_repository.h"
#include "support/driver.h"
#include "support/recording_parts.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex::repository {

/// Tests that work on a repository of their own, opened through each driver, with messages noted.
class RepositoryFileTest : public ::testing::TestWithParam<tests::Driver> {
  protected:
    explicit RepositoryFileTest(const native::NativeOptions& options = {})
        : platform(native::NativePlatform(options)) {
        platform.desktop = std::make_shared<tests::RecordingDesktop>(journal);
    }

    void SetUp() override { path = places.New("definitions.db"); }

    tests::DefinitionRepository NewRepository() { return {platform, path}; }

    std::string Connection() const { return places.Connection(path); }

    void Relate(std::string_view storageName = {}, std::string_view sFKPrefix = "FK_") {
        Repository repository(platform);
        repository.OpenRepository(Connection());
        CreateRelationship(repository, storageName, sFKPrefix);
        repository.Close();
    }

    std::string Dump() const { return tests::DumpRepository(platform, path); }
    void Execute(std::string_view sql) const { tests::Execute(platform, path, sql); }

    /// The rows of a query, columns joined with "|".
    std::vector<std::string> Rows(std::string_view sql, const std::vector<std::string>& columns) const {
        return tests::ReadRows(platform, path, sql, columns);
    }

    tests::TempFolder folder;
    tests::Places places{GetParam(), folder};
    std::string path;
    tests::Journal journal = std::make_shared<std::vector<std::string>>();
    Platform platform;
};

/// Instantiates a suite for every driver.
#define KORVEX_FOR_EACH_DRIVER(suite) \
    INSTANTIATE_TEST_SUITE_P(Drivers, suite, tests::AllDrivers(), tests::DriverName)

}  // namespace korvex::repository
