// The entry points of the test engines' DLL; the .def file exports them undecorated.

#include "automation/com/com_error.h"
#include "automation/com/com_variant.h"
#include "automation/com/module.h"
#include "tests/windows/engines/server_classes.h"

#include <atomic>

namespace korvex::test {

namespace {

class Factory final : public IClassFactory {
  public:
    explicit Factory(const ServerClass& entry) : m_class(entry) {}

    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        const bool isKnown = id == IID_IUnknown || id == IID_IClassFactory;
        *object = isKnown ? this : nullptr;
        if (!isKnown) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --m_references;
        if (left == 0) delete this;
        return left;
    }
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** object) override {
        if (outer != nullptr) return CLASS_E_NOAGGREGATION;
        return com::Guard(id, [&] { return com::ToDispatch(m_class.create())->QueryInterface(id, object); });
    }
    STDMETHODIMP LockServer(BOOL lock) override {
        com::LockModule(lock != FALSE);
        return S_OK;
    }

  private:
    ~Factory() = default;

    com::ModuleLock m_lock;
    std::atomic<ULONG> m_references{0};
    const ServerClass& m_class;
};

}  // namespace

}  // namespace korvex::test

using namespace korvex;

STDAPI DllGetClassObject(REFCLSID classId, REFIID interfaceId, void** object) {
    for (const test::ServerClass& entry : test::ServerClasses()) {
        if (entry.id == classId) {
            return com::ComPtr<IClassFactory>(new test::Factory(entry))->QueryInterface(interfaceId, object);
        }
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() { return com::IsModuleIdle() ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() {
    return com::Guard(IID_NULL, [] { return test::RegisterServer(); });
}

STDAPI DllUnregisterServer() {
    return com::Guard(IID_NULL, [] { return test::UnregisterServer(); });
}
