// A program whose manifest names the component, which is not registered.

#include "automation/com/com_ptr.h"

#include <gtest/gtest.h>

#include <korvex_com.h>
#include <objbase.h>
#include <vector>

namespace korvex::tests {
namespace {

TEST(ManifestTest, AnApplicationCreatesTheClassesWithoutRegistration) {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    for (const wchar_t* progId : {L"Korvex.clsCreateDb", L"Korvex.clsField", L"Korvex.clsCRUD"}) {
        CLSID classId;
        EXPECT_EQ(CLSIDFromProgID(progId, &classId), S_OK);
        com::ComPtr<IDispatch> object;
        EXPECT_EQ(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                   reinterpret_cast<void**>(object.Put())),
                  S_OK);
        HKEY key = nullptr;
        EXPECT_EQ(RegOpenKeyExW(HKEY_CLASSES_ROOT, progId, 0, KEY_READ, &key), ERROR_FILE_NOT_FOUND);
    }
    CoUninitialize();
}

std::size_t FreeThreadIndices() {
    std::vector<DWORD> taken;
    for (DWORD index = TlsAlloc(); index != TLS_OUT_OF_INDEXES; index = TlsAlloc())
        taken.push_back(index);
    for (const DWORD index : taken)
        TlsFree(index);
    return taken.size();
}

// A service that does a job, lets everything go, and waits for the next one.
TEST(ManifestTest, TwoThousandJobsTakeNothingFromTheProcess) {
    std::size_t free = 0;
    for (int round = 0; round < 2001; ++round) {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        com::ComPtr<::_clsCRUD> crud;
        ASSERT_EQ(CoCreateInstance(__uuidof(::clsCRUD), nullptr, CLSCTX_INPROC_SERVER, __uuidof(::_clsCRUD),
                                   reinterpret_cast<void**>(crud.Put())),
                  S_OK);
        EXPECT_EQ(crud->put_FKPrefix(nullptr), E_POINTER);
        SetErrorInfo(0, nullptr);
        crud = {};
        CoFreeUnusedLibrariesEx(0, 0);
        CoUninitialize();
        if (round == 0) free = FreeThreadIndices();
    }
    EXPECT_EQ(FreeThreadIndices(), free);
}

}  // namespace
}  // namespace korvex::tests
