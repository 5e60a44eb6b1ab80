#include "fronts/com/automation/status.h"

#include <array>
#include <new>

#include "fronts/com/automation/text.h"

namespace kt7::automation {

namespace {

constexpr std::uint32_t kPublished = 0x800A0000U;

struct SystemStatus {
  HRESULT status;
  std::int32_t number;
};

// What the platform's own conversions and calls answer, by the published number.
constexpr std::array kSystemStatuses{
    SystemStatus{DISP_E_OVERFLOW, error_number::kOverflow},
    SystemStatus{DISP_E_BADINDEX, error_number::kSubscript},
    SystemStatus{DISP_E_DIVBYZERO, error_number::kDivisionByZero},
    SystemStatus{DISP_E_TYPEMISMATCH, error_number::kTypeMismatch},
    SystemStatus{E_NOTIMPL, error_number::kNotImplemented},
};

void setErrorInformation(const std::string& text, const std::string& source,
                         REFIID interfaceId) noexcept {
  ICreateErrorInfo* created = nullptr;
  if (FAILED(CreateErrorInfo(&created))) return;
  created->SetGUID(interfaceId);
  created->SetDescription(toWide(text).data());
  created->SetSource(toWide(source).data());
  IErrorInfo* information = nullptr;
  if (SUCCEEDED(created->QueryInterface(IID_PPV_ARGS(&information)))) {
    SetErrorInfo(0, information);
    information->Release();
  }
  created->Release();
}

std::string taken(BSTR text) {
  std::string utf8 = toUtf8(viewOf(text));
  SysFreeString(text);
  return utf8;
}

struct Details {
  std::string text;
  std::string source;
};

/// The thread's error information, which is gone afterwards.
Details takeErrorInformation() {
  Details details;
  IErrorInfo* information = nullptr;
  if (GetErrorInfo(0, &information) != S_OK) return details;
  BSTR text = nullptr;
  BSTR source = nullptr;
  information->GetDescription(&text);
  information->GetSource(&source);
  information->Release();
  details.text = taken(text);
  details.source = taken(source);
  return details;
}

[[noreturn]] void raiseDetails(HRESULT status, Details details, const std::string& call) {
  if (details.text.empty()) details.text = call + ": " + systemText(status);
  throw HostError(numberOf(status), details.text, std::move(details.source));
}

}  // namespace

HostError::HostError(std::int32_t number, const std::string& text, std::string source)
    : Error(kindOf(number), number, text), source_(std::move(source)) {}

HRESULT statusOf(std::int32_t number) {
  if (number > 0 && number <= 0xFFFF) {
    return static_cast<HRESULT>(kPublished | static_cast<std::uint32_t>(number));
  }
  return FAILED(number) ? number : E_FAIL;
}

std::int32_t numberOf(HRESULT status) {
  const auto bits = static_cast<std::uint32_t>(status);
  if ((bits & 0xFFFF0000U) == kPublished) return static_cast<std::int32_t>(bits & 0xFFFFU);
  for (const SystemStatus& row : kSystemStatuses) {
    if (row.status == status) return row.number;
  }
  return status;
}

ErrorKind kindOf(std::int32_t number) {
  for (const ErrorKindRow& row : errorKinds()) {
    if (row.number == number) return row.kind;
  }
  return number == error_number::kConnectionFailed ? ErrorKind::Database : ErrorKind::Collaborator;
}

HRESULT reportException(const std::string& source, REFIID interfaceId) noexcept {
  try {
    try {
      throw;
    } catch (const HostError& error) {
      setErrorInformation(error.what(), error.source().empty() ? source : error.source(),
                          interfaceId);
      return statusOf(error.number());
    } catch (const Error& error) {
      setErrorInformation(error.what(), source, interfaceId);
      return statusOf(error.number());
    } catch (const std::bad_alloc&) {
      setErrorInformation("Out of memory", source, interfaceId);
      return E_OUTOFMEMORY;
    } catch (const std::exception& error) {
      setErrorInformation(error.what(), source, interfaceId);
      return E_FAIL;
    }
  } catch (...) {
    forgetErrorInformation();
    return E_UNEXPECTED;
  }
}

HRESULT moveToException(HRESULT status, EXCEPINFO* exception) noexcept {
  if (SUCCEEDED(status) || exception == nullptr) return status;
  *exception = {};
  exception->scode = status;
  IErrorInfo* information = nullptr;
  if (GetErrorInfo(0, &information) == S_OK) {
    information->GetDescription(&exception->bstrDescription);
    information->GetSource(&exception->bstrSource);
    information->Release();
  }
  return DISP_E_EXCEPTION;
}

std::string systemText(HRESULT status) {
  std::array<wchar_t, 512> text{};
  DWORD units = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                               static_cast<DWORD>(status), 0, text.data(),
                               static_cast<DWORD>(text.size()), nullptr);
  while (units > 0 && text[units - 1] <= L' ') --units;
  if (units == 0) return "Automation error " + std::to_string(status);
  return toUtf8({text.data(), units});
}

void forgetErrorInformation() noexcept { SetErrorInfo(0, nullptr); }

void raiseStatus(HRESULT status, const std::string& call) {
  raiseDetails(status, takeErrorInformation(), call);
}

void raiseException(EXCEPINFO& exception, const std::string& call) {
  if (exception.pfnDeferredFillIn != nullptr) exception.pfnDeferredFillIn(&exception);
  SysFreeString(exception.bstrHelpFile);
  Details details;
  details.text = taken(exception.bstrDescription);
  details.source = taken(exception.bstrSource);
  HRESULT status = exception.scode;
  if (status == 0) {
    status = statusOf(exception.wCode != 0 ? exception.wCode : error_number::kCallFailed);
  }
  raiseDetails(status, std::move(details), call);
}

}  // namespace kt7::automation
