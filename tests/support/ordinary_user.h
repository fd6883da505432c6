#pragma once

#include <filesystem>
#include <sys/fsuid.h>
#include <unistd.h>
#include <utility>

namespace korvex::tests {

/// As long as it lives, this thread reaches files as somebody without root's rights does, and a folder takes
/// no new files.
class OrdinaryUser {
  public:
    explicit OrdinaryUser(std::filesystem::path closedFolder) : m_folder(std::move(closedFolder)) {
        constexpr auto write = std::filesystem::perms::owner_write | std::filesystem::perms::group_write |
                               std::filesystem::perms::others_write;
        std::filesystem::permissions(m_folder, write, std::filesystem::perm_options::remove);
        constexpr uid_t nobody = 65534;
        if (::geteuid() == 0) ::setfsuid(nobody);
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    ~OrdinaryUser() {
        ::setfsuid(::geteuid());
        std::filesystem::permissions(m_folder, std::filesystem::perms::owner_write,
                                     std::filesystem::perm_options::add);
    }

  private:
    std::filesystem::path m_folder;
};

}  // namespace korvex::tests
