#include "hosts/python/handle.h"

#include "automation/error.h"
#include "objects/data_object.h"

#include <utility>

namespace korvex::python {

Handle::Handle(automation::ObjectRef object) : m_object(std::move(object)) {}

const automation::ObjectRef& Handle::Object() const {
    constexpr std::int32_t wrongThread = static_cast<std::int32_t>(0x8001010E);
    if (m_thread == std::this_thread::get_id()) return m_object;
    const bool isOfDefinition = QORObject::From(m_object.get()) != nullptr &&
                                dynamic_cast<objects::DataObject*>(m_object.get()) == nullptr;
    if (!isOfDefinition)
        throw automation::Error(wrongThread, "This " + ClassName() + " belongs to the thread that made it.");
    return m_object;
}

std::string Handle::ClassName() const {
    if (dynamic_cast<const objects::DataObject*>(m_object.get()) != nullptr) return "DataObject";
    if (dynamic_cast<const objects::Definition*>(m_object.get()) != nullptr) return "Definition";
    const auto* object = dynamic_cast<const automation::TableObject*>(m_object.get());
    return object != nullptr ? std::string(object->Class().name) : "Object";
}

}  // namespace korvex::python
