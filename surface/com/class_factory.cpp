#include "surface/com/class_factory.h"

#include "automation/com/com_error.h"
#include "automation/com/com_variant.h"
#include "automation/com/module.h"
#include "surface/create_object.h"

#include <atomic>

namespace korvex::com {

namespace {

class ClassFactory final : public IClassFactory {
  public:
    explicit ClassFactory(const CreatableClass& creatable) : m_class(creatable) {}

    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        if (object == nullptr) return E_POINTER;
        const bool isKnown = id == IID_IUnknown || id == IID_IClassFactory;
        *object = isKnown ? static_cast<IClassFactory*>(this) : nullptr;
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
        if (object == nullptr) return E_POINTER;
        *object = nullptr;
        if (outer != nullptr) return CLASS_E_NOAGGREGATION;
        return Guard(id,
                     [&] { return ToDispatch(CreateObject(m_class.progId))->QueryInterface(id, object); });
    }
    STDMETHODIMP LockServer(BOOL lock) override {
        LockModule(lock != FALSE);
        return S_OK;
    }

  private:
    ~ClassFactory() = default;

    ModuleLock m_lock;
    std::atomic<ULONG> m_references{0};
    const CreatableClass& m_class;
};

}  // namespace

ComPtr<IClassFactory> MakeClassFactory(const CreatableClass& creatable) {
    return ComPtr<IClassFactory>(new ClassFactory(creatable));
}

}  // namespace korvex::com
