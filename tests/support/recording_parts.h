#pragma once

#include "automation/error.h"
#include "platform/desktop.h"
#include "platform/files.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace korvex::tests {

/// What reached the desktop and the file system, in order, one line each.
using Journal = std::shared_ptr<std::vector<std::string>>;

/// Notes messages and editor launches; launches of `failing` paths raise an error.
class RecordingDesktop : public platform::Desktop {
  public:
    explicit RecordingDesktop(Journal journal) : m_journal(std::move(journal)) {}

    void ShowMessage(std::string_view text, std::int32_t style, std::string_view title) override {
        m_journal->push_back("message " + std::to_string(style) + " <" + std::string(title) + "> <" +
                             std::string(text) + ">");
    }
    void OpenEditor(std::string_view path) override {
        m_journal->push_back("edit " + std::string(path));
        if (failing.contains(std::string(path))) throw automation::Error(automation::PathNotFound);
    }

    std::set<std::string> failing;

  private:
    Journal m_journal;
};

/// Keeps written texts in memory, line end included; writes to `failing` paths raise DiskFull (61).
class RecordingFiles : public platform::Files {
  public:
    explicit RecordingFiles(Journal journal) : m_journal(std::move(journal)) {}

    void WriteText(std::string_view path, std::string_view text, std::string_view lineEnd) override {
        m_journal->push_back("write " + std::string(path));
        if (failing.contains(std::string(path))) throw automation::Error(automation::DiskFull);
        texts[std::string(path)] = std::string(text) + std::string(lineEnd);
    }
    std::string LibraryFolder() override { return "/library"; }
    char Separator() const noexcept override { return '/'; }

    std::set<std::string> failing;
    std::map<std::string, std::string> texts;

  private:
    Journal m_journal;
};

}  // namespace korvex::tests
