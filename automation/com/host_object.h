#pragma once

#include "automation/com/host_backed.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex::com {

/// An object from outside, called by member name. Its failures become automation::Errors with the number,
/// source and description that it gave; runtime numbers (0x800A0000 + n) become n.
class HostObject : public automation::Object, public HostBacked {
  public:
    /// Which arguments of a call travel by reference: bit i for argument i. All others are passed as values.
    using ByReference = std::uint32_t;

    /// `byReference` holds for every call that does not say otherwise.
    explicit HostObject(ComPtr<IDispatch> object, ByReference byReference = 0)
        : m_object(std::move(object)), m_byReference(byReference) {}

    automation::Variant Invoke(std::string_view name, automation::InvokeKind kind,
                               std::span<automation::Variant> arguments) override {
        return Invoke(name, kind, arguments, m_byReference);
    }
    /// What the member left in by-reference arguments comes back in `arguments`.
    automation::Variant Invoke(std::string_view name, automation::InvokeKind kind,
                               std::span<automation::Variant> arguments, ByReference byReference);
    std::unique_ptr<automation::Enumerator> NewEnum() override;

    IDispatch* HostDispatch() const noexcept override { return m_object.Get(); }

  private:
    DISPID MemberId(std::string_view name);

    ComPtr<IDispatch> m_object;
    ByReference m_byReference;
    /// Members asked for before; an object of an engine is asked for the same few again and again.
    std::vector<std::pair<std::string, DISPID>> m_members;
};

/// The outside object in the answer of a call; raises ObjectVariableNotSet (91) for Nothing, ObjectRequired
/// (424) for anything else.
std::shared_ptr<HostObject> AsHost(const automation::Variant& value);

/// For Each over any COM object: through the DISPID_NEWENUM member of its dispatch interface, which need not
/// be the dual interface at hand, or, where that has none, as the enumerator that the object is itself.
std::unique_ptr<automation::Enumerator> EnumerateHost(IDispatch* object);

/// A new object of a registered class, or nothing; `failure` receives the reason.
std::shared_ptr<HostObject> CreateHostObject(std::string_view progId, HRESULT& failure);

}  // namespace korvex::com
