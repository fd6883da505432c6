#include "platform/native/native_platform.h"

#include <iostream>
#include <string>

namespace korvex::native {
namespace {

class ReportingDesktop final : public platform::Desktop {
  public:
    void ShowMessage(std::string_view text, std::int32_t, std::string_view title) override {
        std::string line(title);
        if (!line.empty()) line += ": ";
        Report(line.append(text));
    }
    void OpenEditor(std::string_view path) override { Report(std::string(path)); }

  private:
    /// In one piece, so that it stays together when several threads report.
    static void Report(std::string line) {
        line += '\n';
        std::cerr.write(line.data(), static_cast<std::streamsize>(line.size()));
        std::cerr.flush();
    }
};

}  // namespace

std::shared_ptr<platform::Desktop> NativeDesktop() { return std::make_shared<ReportingDesktop>(); }

}  // namespace korvex::native
