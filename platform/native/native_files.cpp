#include "automation/error.h"
#include "platform/native/native_platform.h"
#include "platform/replace_file.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace korvex::native {
namespace {

constexpr mode_t DefaultMode = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;

constexpr platform::FileFailure Failures[] = {
    {ENOENT, automation::PathNotFound},     {ENOTDIR, automation::PathNotFound},
    {EACCES, automation::PermissionDenied}, {EPERM, automation::PermissionDenied},
    {EROFS, automation::PermissionDenied},  {ENOSPC, automation::DiskFull},
    {EDQUOT, automation::DiskFull},
};

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
    /// Ends the file behind what was written.
    void CutOff() {
        const off_t end = ::lseek(m_handle, 0, SEEK_CUR);
        if (end < 0 || ::ftruncate(m_handle, end) != 0) RaiseSystemError();
    }
    /// Whether the file was not locked, or its file system knows no locks. The lock ends with the descriptor.
    bool Lock() { return ::flock(m_handle, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK; }
    bool HasName() const {
        struct stat status {};
        return ::fstat(m_handle, &status) == 0 && status.st_nlink > 0;
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

constexpr std::string_view TemporaryStart = ".korvex-";
constexpr std::string_view TemporaryEnd = ".tmp";

/// Removes what killed runs have left in a folder: temporary files that nobody has locked.
void RemoveAbandoned(const std::string& folder) {
    std::error_code none;
    const std::filesystem::directory_iterator files(folder.empty() ? "." : folder, none);
    for (auto file = begin(files); !none && file != end(files); file.increment(none)) {
        const std::string name = file->path().filename().string();
        if (!name.starts_with(TemporaryStart) || !name.ends_with(TemporaryEnd)) continue;
        const int handle = ::open(file->path().c_str(), O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
        if (handle < 0) continue;
        if (::flock(handle, LOCK_EX | LOCK_NB) == 0) ::unlink(file->path().c_str());
        ::close(handle);
    }
}

/// The text under a temporary name beside its target; removed unless it was put in place. It is locked as
/// long as it bears that name.
class TemporaryFile {
  public:
    explicit TemporaryFile(const std::string& target) : m_target(target) { Create(); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (!m_placed) std::remove(m_name.c_str());
    }

    Descriptor& File() noexcept { return *m_file; }

    void Place() {
        m_file->Sync();
        if (std::rename(m_name.c_str(), m_target.c_str()) != 0) RaiseSystemError();
        m_placed = true;
        m_file->Close();
    }

  private:
    /// Creates a file under the first name that is free.
    void Create() {
        const std::string folder = FolderOf(m_target);
        RemoveAbandoned(folder);
        const std::string start = folder + std::string(TemporaryStart) + std::to_string(::getpid()) + "-";
        for (int n = 0;; ++n) {
            m_name = start + std::to_string(n) + std::string(TemporaryEnd);
            const int handle = ::open(m_name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, DefaultMode);
            if (handle < 0 && errno == EEXIST) continue;
            m_file.emplace(handle);
            // Somebody may have taken it for an abandoned one before it was locked.
            if (m_file->Lock() && m_file->HasName()) return;
        }
    }

    const std::string& m_target;
    std::string m_name;
    std::optional<Descriptor> m_file;
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

/// Where writing `path` ends up: a link stays a link to its target, whether that is there or not yet.
std::string RealTarget(std::string path) {
    constexpr int mostLinks = 40;
    for (int links = 0; links < mostLinks; ++links) {
        const std::unique_ptr<char, decltype(&std::free)> resolved(::realpath(path.c_str(), nullptr),
                                                                   &std::free);
        if (resolved) return resolved.get();
        std::error_code isNoLink;
        const std::filesystem::path target = std::filesystem::read_symlink(path, isNoLink);
        if (isNoLink) return path;
        path = (std::filesystem::path(path).parent_path() / target).string();
    }
    errno = ELOOP;
    RaiseSystemError();
}

void ReplaceFile(const std::string& target, std::string_view text, std::string_view lineEnd) {
    struct stat status {};
    const bool exists = ::stat(target.c_str(), &status) == 0;
    if (exists && ::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) RaiseSystemError();
    TemporaryFile temporary(target);
    if (exists) temporary.File().SetMode(status.st_mode & ~static_cast<mode_t>(S_IFMT));
    temporary.File().Write(text);
    temporary.File().Write(lineEnd);
    temporary.Place();
    SyncFolder(target);
}

/// False when there is no file that may be written.
bool OverwriteFile(const std::string& target, std::string_view text, std::string_view lineEnd) {
    const int handle = ::open(target.c_str(), O_WRONLY | O_CLOEXEC);
    if (handle < 0) return false;
    Descriptor file(handle);
    file.Write(text);
    file.Write(lineEnd);
    file.CutOff();
    file.Sync();
    file.Close();
    return true;
}

/// A device or pipe is written as it is; a folder refuses.
void WriteDevice(const std::string& target, std::string_view text, std::string_view lineEnd) {
    Descriptor file(::open(target.c_str(), O_WRONLY | O_CLOEXEC));
    file.Write(text);
    file.Write(lineEnd);
    file.Close();
}

bool IsSpecial(const std::string& target) {
    struct stat status {};
    return ::stat(target.c_str(), &status) == 0 && !S_ISREG(status.st_mode);
}

/// Runs `work`; failures of the system leave it as automation errors that name `path`.
template <class Work>
auto WithFileErrors(std::string_view path, Work work) {
    try {
        return work();
    } catch (const std::system_error& error) {
        throw automation::Error(
            platform::NumberOf(error.code().value(), Failures),
            "The file cannot be written: " + std::string(path) + " (" + error.code().message() + ")");
    }
}

class FileSystem final : public platform::Files {
  public:
    void WriteText(std::string_view path, std::string_view text, std::string_view lineEnd) override {
        const std::string target = WithFileErrors(path, [&] { return RealTarget(std::string(path)); });
        const auto with = [&](auto write) {
            return [&, write] { return WithFileErrors(path, [&] { return write(target, text, lineEnd); }); };
        };
        if (IsSpecial(target)) {
            with(WriteDevice)();
        } else {
            platform::ReplaceOrOverwrite(with(ReplaceFile), with(OverwriteFile));
        }
    }

    std::string LibraryFolder() override {
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

    char Separator() const noexcept override { return '/'; }
};

}  // namespace

std::shared_ptr<platform::Files> NativeFiles() { return std::make_shared<FileSystem>(); }

}  // namespace korvex::native
