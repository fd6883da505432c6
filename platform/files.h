#pragma once

#include <string>
#include <string_view>

namespace korvex::platform {

/// Port to the file system, as far as a run writes text files.
class Files {
  public:
    virtual ~Files() = default;
    /// Puts `text` and `lineEnd` into the file at `path`, in the system's default code page, replacing what
    /// stood there: a temporary file is renamed, so `path` holds the old text or the new one, never a part.
    /// Where the system refuses that, the file may be written in place. Raises PathNotFound (76),
    /// PermissionDenied (70), DiskFull (61) or PathFileAccessError (75), naming the path.
    virtual void WriteText(std::string_view path, std::string_view text, std::string_view lineEnd) = 0;
    /// The folder from which the library was loaded, without a separator at its end.
    virtual std::string LibraryFolder() = 0;
    /// The character between a folder and a file name.
    virtual char Separator() const noexcept = 0;
};

}  // namespace korvex::platform
