#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>

namespace korvex::tests {

inline std::string ReadFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path << " cannot be read";
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Every file of a folder by name.
inline std::map<std::string, std::string> ReadFolder(const std::filesystem::path& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        files[entry.path().filename().string()] = ReadFile(entry.path());
    return files;
}

/// Tells the first line that differs instead of two whole texts.
inline void ExpectSameText(const std::string& name, const std::string& actual, const std::string& expected) {
    if (actual == expected) return;
    std::istringstream actualLines(actual);
    std::istringstream expectedLines(expected);
    std::string actualLine;
    std::string expectedLine;
    for (int line = 1;; ++line) {
        const bool hasActual = static_cast<bool>(std::getline(actualLines, actualLine));
        const bool hasExpected = static_cast<bool>(std::getline(expectedLines, expectedLine));
        if (hasActual && hasExpected && actualLine == expectedLine) continue;
        ADD_FAILURE() << name << " differs in line " << line
                      << "\n  is:     " << (hasActual ? testing::PrintToString(actualLine) : "(no line)")
                      << "\n  should: " << (hasExpected ? testing::PrintToString(expectedLine) : "(no line)");
        return;
    }
}

}  // namespace korvex::tests
