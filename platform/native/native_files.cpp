#include "platform/native/native_files.h"

#include "automation/error.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace korvex::native {
namespace {

constexpr mode_t DefaultMode = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;

std::int32_t ErrorNumberOf(int error) noexcept {
    switch (error) {
        case ENOENT:
        case ENOTDIR:
            return automation::PathNotFound;
        case EACCES:
        case EPERM:
        case EROFS:
            return automation::PermissionDenied;
        case ENOSPC:
        case EDQUOT:
            return automation::DiskFull;
        default:
            return automation::PathFileAccessError;
    }
}

[[noreturn]] void RaiseFileError(const std::string& path, int error) {
    throw automation::Error(ErrorNumberOf(error), "The file cannot be written: " + path + " (" +
                                                      std::generic_category().message(error) + ")");
}

/// An open file descriptor and the path that errors name.
class Descriptor {
  public:
    Descriptor(int handle, const std::string& path) : m_handle(handle), m_path(path) {
        if (m_handle < 0) RaiseFileError(m_path, errno);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (m_handle >= 0) ::close(m_handle);
    }

    void Write(std::string_view text) {
        while (!text.empty()) {
            const ssize_t written = ::write(m_handle, text.data(), text.size());
            if (written >= 0) {
                text.remove_prefix(static_cast<std::size_t>(written));
            } else if (errno != EINTR) {
                RaiseFileError(m_path, errno);
            }
        }
    }
    void SetMode(mode_t mode) {
        if (::fchmod(m_handle, mode) != 0) RaiseFileError(m_path, errno);
    }
    void Sync() {
        // Devices and pipes have nothing to sync.
        if (::fsync(m_handle) != 0 && errno != EINVAL && errno != ENOTSUP) RaiseFileError(m_path, errno);
    }
    void Close() {
        if (::close(std::exchange(m_handle, -1)) != 0) RaiseFileError(m_path, errno);
    }

  private:
    int m_handle;
    const std::string& m_path;
};

/// With the slash at its end; empty for a bare name.
std::string FolderOf(const std::string& path) { return path.substr(0, path.rfind('/') + 1); }

/// The text under a temporary name beside its target; removed unless it was put in place.
class TemporaryFile {
  public:
    explicit TemporaryFile(const std::string& target)
        : m_target(target), m_name(NewName(target)), m_file(Create(m_name), m_target) {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (!m_placed) std::remove(m_name.c_str());
    }

    Descriptor& File() noexcept { return m_file; }

    void Place() {
        m_file.Sync();
        m_file.Close();
        if (std::rename(m_name.c_str(), m_target.c_str()) != 0) RaiseFileError(m_target, errno);
        m_placed = true;
    }

  private:
    static std::string NewName(const std::string& target) {
        static std::atomic<unsigned> counter = 0;
        return FolderOf(target) + ".korvex-" + std::to_string(::getpid()) + "-" + std::to_string(++counter) +
               ".tmp";
    }
    static int Create(const std::string& name) {
        // One that a killed process of the same number left behind is in nobody's way.
        std::remove(name.c_str());
        return ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, DefaultMode);
    }

    const std::string& m_target;
    std::string m_name;
    Descriptor m_file;
    bool m_placed = false;
};

/// The rename itself reaches the disk with its folder.
void SyncFolder(const std::string& path) {
    const std::string folder = FolderOf(path);
    const int handle = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0) return;
    ::fsync(handle);
    ::close(handle);
}

/// Where writing `path` ends up: a link stays a link to its target.
std::string RealTarget(const std::string& path) {
    const std::unique_ptr<char, decltype(&std::free)> resolved(::realpath(path.c_str(), nullptr), &std::free);
    return resolved ? resolved.get() : path;
}

}  // namespace

void NativeFiles::WriteText(std::string_view path, std::string_view text, std::string_view lineEnd) {
    const std::string target = RealTarget(std::string(path));
    struct stat status {};
    const bool exists = ::stat(target.c_str(), &status) == 0;
    if (exists && S_ISDIR(status.st_mode)) RaiseFileError(target, EISDIR);
    if (exists && !S_ISREG(status.st_mode)) {
        // A device or pipe is written, not replaced.
        Descriptor file(::open(target.c_str(), O_WRONLY | O_CLOEXEC), target);
        file.Write(text);
        file.Write(lineEnd);
        file.Close();
        return;
    }
    if (exists && ::access(target.c_str(), W_OK) != 0) RaiseFileError(target, errno);
    TemporaryFile temporary(target);
    if (exists) temporary.File().SetMode(status.st_mode & ~static_cast<mode_t>(S_IFMT));
    temporary.File().Write(text);
    temporary.File().Write(lineEnd);
    temporary.Place();
    SyncFolder(target);
}

std::string NativeFiles::LibraryFolder() {
    Dl_info info{};
    // Any function of this library tells where the library is.
    if (::dladdr(reinterpret_cast<const void*>(&SyncFolder), &info) == 0 || info.dli_fname == nullptr)
        return ".";
    const std::string file = RealTarget(info.dli_fname);
    const std::size_t slash = file.rfind('/');
    return slash == std::string::npos ? "." : file.substr(0, slash);
}

}  // namespace korvex::native
