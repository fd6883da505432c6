#include "automation/com/enum_variant.h"

#include "automation/com/com_error.h"
#include "automation/com/com_object.h"
#include "automation/com/com_variant.h"

#include <vector>

namespace korvex::com {

namespace {

class EnumVariant final : public ComObject<IEnumVARIANT> {
  public:
    /// Stands in front of item `position` (from 0).
    EnumVariant(automation::ObjectRef collection, ULONG position)
        : m_collection(std::move(collection)), m_items(m_collection->NewEnum()) {
        Advance(position);
    }

    STDMETHODIMP Next(ULONG count, VARIANT* items, ULONG* fetched) override {
        if (items == nullptr || (fetched == nullptr && count != 1)) return E_POINTER;
        if (fetched != nullptr) *fetched = 0;
        return Guard(IID_IEnumVARIANT, [&] {
            // All of them or, when one fails, none: a caller lets go only of what a success gave it.
            std::vector<ComVariant> taken;
            while (taken.size() < count) {
                const auto item = m_items->Next();
                if (!item) break;
                ++m_position;
                taken.emplace_back(*item);
            }
            for (std::size_t i = 0; i < taken.size(); ++i)
                items[i] = taken[i].Detach();
            if (fetched != nullptr) *fetched = static_cast<ULONG>(taken.size());
            return taken.size() == count ? S_OK : S_FALSE;
        });
    }
    STDMETHODIMP Skip(ULONG count) override {
        return Guard(IID_IEnumVARIANT, [&] { return Advance(count) ? S_OK : S_FALSE; });
    }
    STDMETHODIMP Reset() override {
        return Guard(IID_IEnumVARIANT, [&] {
            m_items = m_collection->NewEnum();
            m_position = 0;
            return S_OK;
        });
    }
    STDMETHODIMP Clone(IEnumVARIANT** copy) override {
        if (copy == nullptr) return E_POINTER;
        *copy = nullptr;
        return Guard(IID_IEnumVARIANT, [&] {
            *copy = ComPtr<IEnumVARIANT>(new EnumVariant(m_collection, m_position)).Detach();
            return S_OK;
        });
    }

  private:
    bool Advance(ULONG count) {
        for (; count > 0 && m_items->Next(); --count)
            ++m_position;
        return count == 0;
    }

    automation::ObjectRef m_collection;
    std::unique_ptr<automation::Enumerator> m_items;
    ULONG m_position = 0;
};

}  // namespace

ComPtr<IEnumVARIANT> EnumerateForHost(automation::ObjectRef collection) {
    return ComPtr<IEnumVARIANT>(new EnumVariant(std::move(collection), 0));
}

}  // namespace korvex::com
