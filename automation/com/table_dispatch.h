#pragma once

#include "automation/com/com_variant.h"
#include "automation/dispatch.h"

#include <oaidl.h>
#include <windows.h>

#include <cstddef>
#include <memory>
#include <span>
#include <utility>

namespace korvex::com {

/// Turns a host's object into what a member with that parameter works with (a QORObject, an ADO connection);
/// answers other objects as they are. Raises TypeMismatch (13) for an object that is not what the parameter
/// wants.
using BindObject = automation::ObjectRef (*)(automation::ObjectRef object,
                                             const automation::Parameter& parameter);

/// Serves the COM members of one object from its member table. Member n of the table (from 1) is slot n of
/// the dual interface; the dispatch identifier of a name is the number of its first slot.
class TableDispatch {
  public:
    TableDispatch(std::shared_ptr<automation::TableObject> object, BindObject bind)
        : m_object(std::move(object)), m_bind(bind) {}

    HRESULT GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, DISPID* ids) const noexcept;
    HRESULT Invoke(DISPID id, REFIID reserved, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                   EXCEPINFO* exception, UINT* badArgument) const noexcept;

    const automation::Member& Row(std::size_t slot) const { return m_object->Class().members[slot - 1]; }
    /// Calls a slot; `arguments` hold its parameters in order, as a late-bound caller would pass them, a null
    /// pointer as a missing argument. Errors are raised.
    ComVariant CallSlot(std::size_t slot, std::span<VARIANT> arguments) const;

    const std::shared_ptr<automation::TableObject>& Object() const noexcept { return m_object; }

  private:
    /// The row that serves `id` for a call with those flags, or nullptr.
    const automation::Member* FindRow(DISPID id, WORD flags) const noexcept;
    /// One value per parameter, `arguments[i]` (null for none) converted to what parameter i declares.
    /// `position` tells, when it raises, which argument was at fault.
    std::vector<automation::Variant> ReadArguments(const automation::Member& member,
                                                   std::span<VARIANT* const> arguments,
                                                   std::size_t& position) const;
    automation::Variant Call(const automation::Member& member, std::span<VARIANT* const> arguments,
                             std::vector<automation::Variant> values) const;
    /// Nothing for an object that is no collection.
    ComPtr<IEnumVARIANT> NewEnum() const;

    std::shared_ptr<automation::TableObject> m_object;
    BindObject m_bind;
};

}  // namespace korvex::com
