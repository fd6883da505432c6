#include "automation/com/com_error.h"

#include "automation/com/bstr.h"

#include <cstdio>
#include <new>
#include <string>
#include <utility>

namespace korvex::com {

namespace {

using automation::Error;

constexpr HRESULT RuntimeBase = static_cast<HRESULT>(0x800A0000);

/// The runtime's numbers for results that automation itself gives to a late-bound caller.
constexpr std::pair<HRESULT, std::int32_t> RuntimeNumbers[] = {
    {DISP_E_UNKNOWNNAME, automation::MemberNotFound},
    {DISP_E_MEMBERNOTFOUND, automation::MemberNotFound},
    {DISP_E_TYPEMISMATCH, automation::TypeMismatch},
    {DISP_E_OVERFLOW, automation::Overflow},
    {DISP_E_BADPARAMCOUNT, automation::WrongArgumentCount},
    {DISP_E_PARAMNOTOPTIONAL, automation::ArgumentNotOptional},
    {DISP_E_BADINDEX, automation::SubscriptOutOfRange},
    {E_OUTOFMEMORY, automation::OutOfMemory},
};

std::int32_t RuntimeNumber(HRESULT result) noexcept {
    for (const auto& [given, number] : RuntimeNumbers)
        if (given == result) return number;
    return NumberOf(result);
}

/// The error information that the thread holds, when it was left by `object` for that interface.
ComPtr<IErrorInfo> TakeErrorInfo(IUnknown* object, REFIID interfaceId) {
    const auto support = ComPtr<IUnknown>(object).As<ISupportErrorInfo>();
    ComPtr<IErrorInfo> info;
    if (support && support->InterfaceSupportsErrorInfo(interfaceId) == S_OK) GetErrorInfo(0, info.Put());
    return info;
}

/// The exception being handled, as an error to report.
Error CurrentError() {
    try {
        throw;
    } catch (const Error& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return Error(automation::OutOfMemory);
    } catch (const std::exception& exception) {
        return Error(E_FAIL, exception.what());
    } catch (...) {
        return Error(E_UNEXPECTED, "An unknown failure inside the library");
    }
}

HRESULT LeaveErrorInfo(const Error& error, REFIID interfaceId) {
    ComPtr<ICreateErrorInfo> info;
    if (SUCCEEDED(CreateErrorInfo(info.Put()))) {
        info->SetGUID(interfaceId);
        info->SetSource(Bstr(error.Source()).Get());
        info->SetDescription(Bstr(error.Description()).Get());
        SetErrorInfo(0, info.As<IErrorInfo>().Get());
    }
    return ResultOf(error.Number());
}

void FillExceptionInfo(const Error& error, EXCEPINFO& info) {
    info.scode = ResultOf(error.Number());
    info.bstrSource = ToBstr(error.Source());
    info.bstrDescription = ToBstr(error.Description());
}

}  // namespace

HRESULT ResultOf(std::int32_t number) noexcept {
    if (number > 0 && number <= 0xFFFF) return RuntimeBase + number;
    return number < 0 ? static_cast<HRESULT>(number) : E_FAIL;
}

std::int32_t NumberOf(HRESULT result) noexcept {
    const bool isRuntimes = (result & static_cast<HRESULT>(0xFFFF0000)) == RuntimeBase;
    return isRuntimes ? result & 0xFFFF : result;
}

HRESULT ReportException(REFIID interfaceId) noexcept {
    try {
        return LeaveErrorInfo(CurrentError(), interfaceId);
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

HRESULT ReportException(EXCEPINFO* info) noexcept {
    if (info == nullptr) return DISP_E_EXCEPTION;
    *info = {};
    info->scode = E_OUTOFMEMORY;
    try {
        FillExceptionInfo(CurrentError(), *info);
    } catch (...) {
        // Without memory for the texts the number alone has to do.
    }
    return DISP_E_EXCEPTION;
}

void Check(HRESULT result, IUnknown* object, REFIID interfaceId) {
    if (SUCCEEDED(result)) return;
    const auto info = TakeErrorInfo(object, interfaceId);
    if (!info) throw Error(NumberOf(result), SystemText(result));
    Bstr source;
    Bstr description;
    info->GetSource(source.Put());
    info->GetDescription(description.Put());
    throw Error(NumberOf(result), description.Text(), source.Text());
}

void RaiseInvokeError(HRESULT result, EXCEPINFO& info, std::string_view member) {
    if (result != DISP_E_EXCEPTION) {
        const std::int32_t number = RuntimeNumber(result);
        std::string description =
            number < 0 ? SystemText(result) : std::string(automation::StandardErrorText(number));
        if (description.ends_with('.')) description.pop_back();
        throw Error(number, description.append(": ").append(member));
    }
    if (info.pfnDeferredFillIn != nullptr) info.pfnDeferredFillIn(&info);
    Bstr source;
    Bstr description;
    *source.Put() = info.bstrSource;
    *description.Put() = info.bstrDescription;
    SysFreeString(info.bstrHelpFile);
    const std::int32_t number =
        info.wCode != 0 ? info.wCode : NumberOf(info.scode != 0 ? info.scode : result);
    throw Error(number, description.Text(), source.Text());
}

std::string SystemText(HRESULT result) {
    wchar_t buffer[512];
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                  static_cast<DWORD>(result), 0, buffer, ARRAYSIZE(buffer), nullptr);
    while (length > 0 && (buffer[length - 1] == L'\r' || buffer[length - 1] == L'\n'))
        --length;
    if (length > 0) return FromWide({buffer, length});
    char number[16];
    std::snprintf(number, sizeof number, "0x%08lX", static_cast<unsigned long>(result));
    return number;
}

}  // namespace korvex::com
