#include "hosts/python/host_platform.h"

#include "hosts/cli/source.h"
#include "hosts/python/values.h"

#include <memory>

namespace korvex::python {

namespace {

class LoggingDesktop final : public platform::Desktop {
  public:
    void ShowMessage(std::string_view text, std::int32_t style, std::string_view title) override {
        const char* level = style == platform::StyleExclamation ? "warning" : "error";
        if (title.empty())
            Log(level, "%s", text);
        else
            Log(level, "%s: %s", title, text);
    }
    void OpenEditor(std::string_view path) override { Log("info", "written: %s", path); }

  private:
    template <class... Texts>
    static void Log(const char* level, const char* format, Texts... texts) {
        const py::gil_scoped_acquire interpreter;
        const py::object logger = py::module_::import("logging").attr("getLogger")("korvex");
        logger.attr(level)(format, ReadableText(texts)...);
    }
};

}  // namespace

Platform HostPlatform() {
    Platform platform = DefaultPlatform();
    platform.desktop = std::make_shared<LoggingDesktop>();
    platform.repositoryEngine = cli::EngineForSources(platform.repositoryEngine);
    return platform;
}

}  // namespace korvex::python
