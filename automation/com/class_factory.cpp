#include "automation/com/class_factory.h"

#include "automation/com/com_error.h"
#include "automation/com/com_object.h"
#include "automation/com/com_variant.h"

#include <utility>

namespace korvex::com {

namespace {

class ClassFactory final : public ComObject<IClassFactory> {
  public:
    explicit ClassFactory(std::function<automation::ObjectRef()> create) : m_create(std::move(create)) {}

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = nullptr;
        if (outer != nullptr) return CLASS_E_NOAGGREGATION;
        return Guard(id, [&] { return ToDispatch(m_create())->QueryInterface(id, object); });
    }
    STDMETHODIMP LockServer(BOOL lock) override {
        LockModule(lock != FALSE);
        return S_OK;
    }

  private:
    std::function<automation::ObjectRef()> m_create;
};

}  // namespace

ComPtr<IClassFactory> MakeClassFactory(std::function<automation::ObjectRef()> create) {
    PinModule();
    return ComPtr<IClassFactory>(new ClassFactory(std::move(create)));
}

}  // namespace korvex::com
