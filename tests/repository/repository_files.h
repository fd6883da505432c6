#pragma once

#include "platform/native/native_platform.h"
#include "repository/relationship_builder.h"
#include "repository/repository.h"
#include "support/definition_repository.h"
#include "support/recording_parts.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex::repository {

/// Tests that work on a repository file of their own, with messages noted.
class RepositoryFileTest : public ::testing::Test {
  protected:
    explicit RepositoryFileTest(const native::NativeOptions& options = {})
        : platform(native::NativePlatform(options)) {
        platform.desktop = std::make_shared<tests::RecordingDesktop>(journal);
    }

    tests::DefinitionRepository NewRepository() { return {platform, path}; }

    void Relate(std::string_view storageName = {}, std::string_view sFKPrefix = "FK_") {
        Repository repository(platform);
        repository.OpenRepository(path);
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
    std::string path = folder.Path("definitions.db");
    tests::Journal journal = std::make_shared<std::vector<std::string>>();
    Platform platform;
};

}  // namespace korvex::repository
