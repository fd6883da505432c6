#pragma once

#include <cstdint>
#include <cstdlib>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

namespace korvex::fuzz {

/// A file that stands in memory only and is opened by its path.
class MemoryFile {
  public:
    MemoryFile(const std::uint8_t* data, std::size_t size) : m_file(memfd_create("input", MFD_CLOEXEC)) {
        if (m_file < 0 || write(m_file, data, size) != static_cast<ssize_t>(size)) std::abort();
    }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    ~MemoryFile() { close(m_file); }

    std::string Path() const { return "/proc/self/fd/" + std::to_string(m_file); }

  private:
    int m_file;
};

}  // namespace korvex::fuzz
