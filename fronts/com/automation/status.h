#pragma once

#include <windows.h>

#include <string>

#include <kt7/error.h>

namespace kt7::automation {

/// An error of a host's object on its way through: number, text and the source it named.
class HostError : public Error {
 public:
  HostError(std::int32_t number, const std::string& text, std::string source);
  const std::string& source() const { return source_; }

 private:
  std::string source_;
};

/// Published error n is 0x800A0000 + n; the numbers of the database are statuses already.
HRESULT statusOf(std::int32_t number);
/// The published number of a status; a status that has none is its own number.
std::int32_t numberOf(HRESULT status);
ErrorKind kindOf(std::int32_t number);

/// Turns the exception in flight into its status and sets the thread's error information. An error
/// of a host's object keeps the source that it named.
HRESULT reportException(const std::string& source, REFIID interfaceId) noexcept;

/// Runs the work; an exception becomes a status with error information.
template <typename Work>
HRESULT guarded(const std::string& source, REFIID interfaceId, Work&& work) noexcept {
  try {
    work();
    return S_OK;
  } catch (...) {
    return reportException(source, interfaceId);
  }
}

/// Moves the thread's error information into the answer of Invoke: DISP_E_EXCEPTION with the status
/// in it, or the status itself where the caller wants no details.
HRESULT moveToException(HRESULT status, EXCEPINFO* exception) noexcept;

/// To be done before a call whose failure raiseStatus raises: a callee that sets no error
/// information is else told with the text of an earlier failure.
void forgetErrorInformation() noexcept;
/// Raises a failed status of a call, with the thread's error information where there is any;
/// `call` names what was called and is the text where nothing else is known.
[[noreturn]] void raiseStatus(HRESULT status, const std::string& call);
/// The same from the details that Invoke gave.
[[noreturn]] void raiseException(EXCEPINFO& exception, const std::string& call);

/// What the system says about a status, without the line end.
std::string systemText(HRESULT status);

}  // namespace kt7::automation
