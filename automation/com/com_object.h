#pragma once

#include "automation/com/module.h"

#include <oaidl.h>
#include <windows.h>

#include <atomic>
#include <concepts>
#include <tuple>
#include <unknwn.h>

namespace korvex::com {

/// A COM object that answers to `Interfaces` (and to IDispatch when one of them is a dual interface):
/// identity and counting. It is born without a reference, goes with the last one and keeps its module loaded.
template <class... Interfaces>
class ComObject : public Interfaces... {
  public:
    ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = Find(id);
        if (*object == nullptr) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --m_references;
        if (left == 0) delete this;
        return left;
    }

  protected:
    virtual ~ComObject() = default;

  private:
    /// The identity of the object is its first interface.
    void* Find(REFIID id) noexcept {
        using Identity = std::tuple_element_t<0, std::tuple<Interfaces...>>;
        if (id == IID_IUnknown) return static_cast<Identity*>(this);
        void* found = nullptr;
        static_cast<void>(((Serves<Interfaces>(id) && (found = static_cast<Interfaces*>(this))) || ...));
        return found;
    }
    template <class Interface>
    static bool Serves(REFIID id) noexcept {
        return id == __uuidof(Interface) || (std::derived_from<Interface, IDispatch> && id == IID_IDispatch);
    }

    ModuleLock m_lock;
    std::atomic<ULONG> m_references{0};
};

}  // namespace korvex::com
