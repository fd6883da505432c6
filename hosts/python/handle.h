#pragma once

#include "automation/dispatch.h"

#include <pybind11/pybind11.h>
#include <string>
#include <thread>

namespace korvex::python {

namespace py = pybind11;

/// What a Python object of the library holds. It belongs to the thread that made it, as the library's objects
/// do; only definitions and their parts, which nobody changes, are everybody's.
class Handle {
  public:
    explicit Handle(automation::ObjectRef object);

    /// The object. Raises the number that automation hosts know for it (0x8001010E) in another thread.
    const automation::ObjectRef& Object() const;
    /// The object as a T; TypeMismatch (13) for another kind.
    template <class T>
    std::shared_ptr<T> As() const {
        return automation::ObjectAs<T>(Object());
    }
    /// The Python class that stands for the object: "clsCRUD", "DataObject" ...
    std::string ClassName() const;
    std::uintptr_t Address() const noexcept { return reinterpret_cast<std::uintptr_t>(m_object.get()); }

  private:
    automation::ObjectRef m_object;
    std::thread::id m_thread = std::this_thread::get_id();
};

}  // namespace korvex::python
