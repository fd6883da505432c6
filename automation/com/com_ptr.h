#pragma once

#include <windows.h>

#include <unknwn.h>
#include <utility>

namespace korvex::com {

/// One counted reference to a COM object.
template <class T>
class ComPtr {
  public:
    ComPtr() = default;
    explicit ComPtr(T* object) noexcept : m_object(object) {
        if (m_object != nullptr) m_object->AddRef();
    }
    ComPtr(const ComPtr& other) noexcept : ComPtr(other.m_object) {}
    ComPtr(ComPtr&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(m_object, other.m_object);
        return *this;
    }
    ~ComPtr() {
        if (m_object != nullptr) m_object->Release();
    }

    /// Takes over a reference that the caller owns.
    static ComPtr Attach(T* object) noexcept {
        ComPtr result;
        result.m_object = object;
        return result;
    }
    /// Gives the reference away.
    T* Detach() noexcept { return std::exchange(m_object, nullptr); }

    T* Get() const noexcept { return m_object; }
    T* operator->() const noexcept { return m_object; }
    explicit operator bool() const noexcept { return m_object != nullptr; }

    /// For functions that answer a reference through a pointer; lets an earlier one go.
    T** Put() noexcept {
        *this = ComPtr();
        return &m_object;
    }

    /// The same object through another interface, or nothing.
    template <class U>
    ComPtr<U> As() const noexcept {
        ComPtr<U> result;
        if (m_object != nullptr) {
            m_object->QueryInterface(__uuidof(U), reinterpret_cast<void**>(result.Put()));
        }
        return result;
    }

  private:
    T* m_object = nullptr;
};

}  // namespace korvex::com
