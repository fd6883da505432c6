#include "automation/com/com_ptr.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <korvex_com.h>
#include <objbase.h>

namespace korvex::tests {
namespace {

constexpr const char* applicationManifest = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">
  <assemblyIdentity type="win32" name="host" version="1.0.0.0"/>
  <dependency>
    <dependentAssembly>
      <assemblyIdentity type="win32" name="korvex.sxs" version=")" KORVEX_VERSION
                                            R"(.0" processorArchitecture="amd64"/>
    </dependentAssembly>
  </dependency>
</assembly>
)";

std::filesystem::path ProgramFolder() {
    wchar_t program[MAX_PATH];
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    return std::filesystem::path(program).parent_path();
}

/// What an application's manifest that names the component does for the application.
class ApplicationContext {
  public:
    ApplicationContext() {
        const std::filesystem::path manifest = ProgramFolder() / "host.manifest";
        std::ofstream(manifest) << applicationManifest;
        ACTCTXW request = {};
        request.cbSize = sizeof request;
        request.lpSource = manifest.c_str();
        m_context = CreateActCtxW(&request);
        EXPECT_NE(m_context, INVALID_HANDLE_VALUE) << GetLastError();
        EXPECT_TRUE(ActivateActCtx(m_context, &m_cookie));
    }
    ApplicationContext(const ApplicationContext&) = delete;
    ApplicationContext& operator=(const ApplicationContext&) = delete;
    ~ApplicationContext() {
        DeactivateActCtx(0, m_cookie);
        ReleaseActCtx(m_context);
    }

    /// Whether the manifest, and not the registry, says where the class is.
    static bool Knows(const CLSID& classId) {
        ACTCTX_SECTION_KEYED_DATA found = {};
        found.cbSize = sizeof found;
        return FindActCtxSectionGuid(0, nullptr, ACTIVATION_CONTEXT_SECTION_COM_SERVER_REDIRECTION, &classId,
                                     &found) != FALSE;
    }

  private:
    HANDLE m_context = INVALID_HANDLE_VALUE;
    ULONG_PTR m_cookie = 0;
};

TEST(ManifestTest, AnApplicationCreatesTheClassesWithoutRegistration) {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const CLSID classes[] = {__uuidof(::clsCreateDb), __uuidof(::clsField), __uuidof(::clsCRUD)};
    for (const CLSID& classId : classes)
        EXPECT_FALSE(ApplicationContext::Knows(classId));
    {
        const ApplicationContext application;
        for (const CLSID& classId : classes) {
            EXPECT_TRUE(ApplicationContext::Knows(classId));
            com::ComPtr<IDispatch> object;
            EXPECT_EQ(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                       reinterpret_cast<void**>(object.Put())),
                      S_OK);
        }
        for (const wchar_t* progId : {L"Korvex.clsCreateDb", L"Korvex.clsField", L"Korvex.clsCRUD"}) {
            CLSID classId;
            EXPECT_EQ(CLSIDFromProgID(progId, &classId), S_OK);
        }
    }
    CoUninitialize();
}

}  // namespace
}  // namespace korvex::tests
