// A C++ host of the dual interfaces: writes the scripts of a definition, reads a field of the target
// database.
//     host C:\data\orders.mdb Orders C:\scripts "Provider=..." tOrder OrderID 1 OrderNumber
// Built with the header of the type library, ole32, oleaut32 and uuid; for example
//     x86_64-w64-mingw32-g++ -std=c++20 -municode -static -I include host.cpp -lole32 -loleaut32 -luuid
#include <cstdio>
#include <initguid.h>
#include <korvex_com.h>
#include <oleauto.h>

namespace {

/// A text that members take by reference, or that they give.
class Text {
  public:
    explicit Text(const wchar_t* text = L"") : m_text(SysAllocString(text)) {}
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    ~Text() { SysFreeString(m_text); }
    BSTR* operator&() { return &m_text; }
    BSTR Get() const { return m_text; }

  private:
    BSTR m_text;
};

/// Prints what a failed call left: its number, and the text that explains it.
bool Succeeded(const char* what, HRESULT result) {
    if (SUCCEEDED(result)) return true;
    IErrorInfo* info = nullptr;
    Text description;
    if (GetErrorInfo(0, &info) == S_OK) {
        info->GetDescription(&description);
        info->Release();
    }
    std::printf("%s: 0x%08lX %ls\n", what, static_cast<unsigned long>(result), description.Get());
    return false;
}

template <class Interface>
Interface* Create(REFCLSID classId) {
    void* object = nullptr;
    Succeeded("create",
              CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface), &object));
    return static_cast<Interface*>(object);
}

bool WriteScripts(const wchar_t* repository, const wchar_t* storage, const wchar_t* folder) {
    _clsCreateDb* scripts = Create<_clsCreateDb>(__uuidof(clsCreateDb));
    if (scripts == nullptr) return false;
    Text path(folder);
    Text file(repository);
    Text name(storage);
    // A null pointer leaves an optional argument out.
    const bool written = Succeeded("ScriptFilePath", scripts->put_ScriptFilePath(&path)) &&
                         Succeeded("DoMSsqlDb", scripts->DoMSsqlDb(&file, &name, nullptr));
    Text tables;
    if (written && Succeeded("DbSQL", scripts->get_DbSQL(&tables)))
        std::printf("%u characters create the tables\n", SysStringLen(tables.Get()));
    scripts->Release();
    return written;
}

/// The arguments: connection, table, key column, key, field.
bool ReadField(wchar_t** arguments) {
    _clsCRUD* crud = Create<_clsCRUD>(__uuidof(clsCRUD));
    if (crud == nullptr) return false;
    VARIANT connection = {};
    connection.vt = VT_BSTR;
    connection.bstrVal = SysAllocString(arguments[0]);
    VARIANT key = {};
    key.vt = VT_I4;
    key.lVal = static_cast<LONG>(wcstol(arguments[3], nullptr, 10));
    Text table(arguments[1]);
    Text keyColumn(arguments[2]);
    Text field(arguments[4]);
    VARIANT value = {};
    VARIANT_BOOL found = VARIANT_FALSE;
    if (Succeeded("ConnectDB", crud->ConnectDB(&connection, nullptr, &found)) && found != VARIANT_FALSE)
        Succeeded("DbGetField", crud->DbGetField(&key, &keyColumn, &table, &field, &value, &found));
    dbResults result = dbNoError;
    crud->get_LastResult(&result);
    if (found == VARIANT_FALSE) std::printf("LastResult %d\n", result);
    if (found != VARIANT_FALSE && SUCCEEDED(VariantChangeType(&value, &value, 0, VT_BSTR)))
        std::printf("%ls is %ls\n", field.Get(), value.bstrVal);
    VariantClear(&value);
    VariantClear(&connection);
    crud->Release();
    return found != VARIANT_FALSE;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 9) return 2;
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const bool done = WriteScripts(arguments[1], arguments[2], arguments[3]) && ReadField(arguments + 4);
    CoUninitialize();
    return done ? 0 : 1;
}
