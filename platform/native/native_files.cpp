#include "platform/native/native_files.h"

#include "automation/error.h"

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

[[noreturn]] void RaiseSystemError() { throw std::system_error(errno, std::generic_category()); }

/// An open file descriptor; failures are std::system_errors.
class Descriptor {
  public:
    explicit Descriptor(int handle) : m_handle(handle) {
        if (m_handle < 0) RaiseSystemError();
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
                RaiseSystemError();
            }
        }
    }
    void SetMode(mode_t mode) {
        if (::fchmod(m_handle, mode) != 0) RaiseSystemError();
    }
    void Sync() {
        // Some file systems have nothing to sync.
        if (::fsync(m_handle) != 0 && errno != EINVAL && errno != ENOTSUP) RaiseSystemError();
    }
    void Close() {
        if (::close(std::exchange(m_handle, -1)) != 0) RaiseSystemError();
    }

  private:
    int m_handle;
};

/// With the slash at its end; empty for a bare name.
std::string FolderOf(const std::string& path) { return path.substr(0, path.rfind('/') + 1); }

/// The text under a temporary name beside its target; removed unless it was put in place.
class TemporaryFile {
  public:
    explicit TemporaryFile(const std::string& target) : m_target(target), m_file(Create()) {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (!m_placed) std::remove(m_name.c_str());
    }

    Descriptor& File() noexcept { return m_file; }

    void Place() {
        m_file.Sync();
        m_file.Close();
        if (std::rename(m_name.c_str(), m_target.c_str()) != 0) RaiseSystemError();
        m_placed = true;
    }

  private:
    /// Creates a file under the first name that is free.
    int Create() {
        const std::string start = FolderOf(m_target) + ".korvex-" + std::to_string(::getpid()) + "-";
        int handle = -1;
        for (int n = 0; handle < 0; ++n) {
            m_name = start + std::to_string(n) + ".tmp";
            handle = ::open(m_name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, DefaultMode);
            if (handle < 0 && errno != EEXIST) RaiseSystemError();
        }
        return handle;
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

void ReplaceFile(const std::string& target, std::string_view text, std::string_view lineEnd) {
    struct stat status {};
    const bool exists = ::stat(target.c_str(), &status) == 0;
    if (exists && !S_ISREG(status.st_mode)) {
        // A device or pipe is written, not replaced; a folder refuses.
        Descriptor file(::open(target.c_str(), O_WRONLY | O_CLOEXEC));
        file.Write(text);
        file.Write(lineEnd);
        file.Close();
        return;
    }
    if (exists && ::access(target.c_str(), W_OK) != 0) RaiseSystemError();
    TemporaryFile temporary(target);
    if (exists) temporary.File().SetMode(status.st_mode & ~static_cast<mode_t>(S_IFMT));
    temporary.File().Write(text);
    temporary.File().Write(lineEnd);
    temporary.Place();
    SyncFolder(target);
}

}  // namespace

void NativeFiles::WriteText(std::string_view path, std::string_view text, std::string_view lineEnd) {
    try {
        ReplaceFile(RealTarget(std::string(path)), text, lineEnd);
    } catch (const std::system_error& error) {
        throw automation::Error(
            ErrorNumberOf(error.code().value()),
            "The file cannot be written: " + std::string(path) + " (" + error.code().message() + ")");
    }
}

std::string NativeFiles::LibraryFolder() {
    Dl_info info{};
    // Any function of this library tells where the library is.
    if (::dladdr(reinterpret_cast<const void*>(&SyncFolder), &info) == 0 || info.dli_fname == nullptr)
        return ".";
    // Linked into a program, this is the name the program was called by, which may lack its folder.
    const std::string name = info.dli_fname;
    const std::string file = RealTarget(name.find('/') == std::string::npos ? "/proc/self/exe" : name);
    const std::size_t slash = file.rfind('/');
    return slash == std::string::npos ? "." : file.substr(0, slash);
}

}  // namespace korvex::native
