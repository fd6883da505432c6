#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <system_error>

namespace korvex::tests {

/// A new folder of its own, removed with everything in it at the end.
class TempFolder {
  public:
    TempFolder() {
        std::random_device random;
        do {
            m_path = std::filesystem::temp_directory_path() / ("korvex-test-" + std::to_string(random()));
        } while (!std::filesystem::create_directory(m_path));
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    /// The path of a file in the folder, or of the folder itself.
    std::string Path(std::string_view name = {}) const {
        return name.empty() ? m_path.string() : (m_path / name).string();
    }
    /// Writes a file and gives its path.
    std::string Write(std::string_view name, std::string_view content) const {
        std::ofstream file(m_path / name, std::ios::binary);
        file.write(content.data(), static_cast<std::streamsize>(content.size()));
        return Path(name);
    }
    std::string Read(std::string_view name) const {
        std::ifstream file(m_path / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

  private:
    std::filesystem::path m_path;
};

}  // namespace korvex::tests
