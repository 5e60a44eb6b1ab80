#include <array>
#include <vector>

#include <kt7/operations.h>
#include "checks.h"
#include "client.h"
#include "fronts/com/automation/status.h"
#include "fronts/com/automation/text.h"

namespace kt7::client {

namespace {

using automation::BstrText;

Variant day(const char* iso) { return Date::fromIsoText(iso); }

std::string textOf(const Outcome& outcome) {
  return SUCCEEDED(outcome.status) ? automation::toValue(outcome.answer.raw()).joinedText()
                                   : "status " + std::to_string(outcome.status);
}

VARIANT missing() {
  VARIANT variant{};
  variant.vt = VT_ERROR;
  variant.scode = DISP_E_PARAMNOTFOUND;
  return variant;
}

VARIANT reference(VARIANT& variable) {
  VARIANT variant{};
  variant.vt = VT_BYREF | VT_VARIANT;
  variant.pvarVal = &variable;
  return variant;
}

void testEarly(::_HRObject& hr) {
  BSTR text = nullptr;
  checkStatus(hr.DateDifText(Date::fromYmd(2020, 1, 15).serial(),
                             Date::fromYmd(2026, 3, 20).serial(), &text),
              S_OK, "early DateDifText");
  checkEqual(automation::toUtf8(automation::viewOf(text)), "6-2-0", "early DateDifText");
  SysFreeString(text);

  double same = 0;
  IDispatch* none = nullptr;
  checkStatus(hr.TrimSFUNDBase(12.5, &none, &same), S_OK, "an object that is not set");
  checkStatus(hr.TrimSFUNDBase(12.5, nullptr, &same), S_OK, "no object at all");
  check(same == 12.5, "early TrimSFUNDBase");
  checkStatus(hr.TrimSFUNDBase(12.5, &none, nullptr), E_POINTER, "nowhere for the result");
}

void testLate(IDispatch* hr) {
  const Variant from = day("2020-01-15");
  const Variant to = day("2026-03-20");
  checkEqual(textOf(call(hr, L"datediftext", {from.raw(), to.raw()})), "6-2-0",
             "letter case of names");
  checkEqual(textOf(call(hr, L"DateDifText", {to.raw(), from.raw()}, {L"ToDate", L"StartDate"})),
             "6-2-0", "named arguments");
  checkEqual(textOf(call(hr, L"DateDifText", {from.raw(), to.raw()}, {L"TODATE"})), "6-2-0",
             "one in order, one named");
  checkStatus(call(hr, L"DateDifText", {from.raw(), to.raw()}, {L"Until"}).status,
              DISP_E_UNKNOWNNAME, "a name that is no parameter");
  checkStatus(call(hr, L"NoSuchOperation", {}).status, DISP_E_UNKNOWNNAME, "an unknown operation");
  checkStatus(call(hr, L"DateDifText", {from.raw()}).scode, automation::statusOf(449),
              "a missing argument");
  checkStatus(call(hr, L"DateDifText", {from.raw(), to.raw(), to.raw()}).scode,
              automation::statusOf(450), "one argument too many");

  const Variant text("2020-01-15");
  const Variant number(43845);  // the same day
  checkEqual(textOf(call(hr, L"DateDifText", {text.raw(), to.raw()})), "6-2-0", "a date as a text");
  checkEqual(textOf(call(hr, L"DateDifText", {number.raw(), to.raw()})), "6-2-0",
             "a date as a number");
  const Variant word("abc");
  const Outcome mismatch = call(hr, L"DateDifText", {word.raw(), to.raw()});
  checkStatus(mismatch.status, DISP_E_EXCEPTION, "a text that is no date");
  checkStatus(mismatch.scode, automation::statusOf(13), "a text that is no date");
  checkEqual(mismatch.source, "KT7HRLib.HRObject", "the source of an error");

  Variant variable(12.5);
  const VARIANT byReference = reference(*const_cast<VARIANT*>(&variable.raw()));
  VARIANT twice = byReference;
  checkEqual(textOf(call(hr, L"TrimSFUNDBase", {reference(twice), missing()})),
             "status " + std::to_string(DISP_E_EXCEPTION), "an object that was left out");
  const Variant nothing(static_cast<IDispatch*>(nullptr));
  checkEqual(textOf(call(hr, L"TrimSFUNDBase", {reference(twice), nothing.raw()})), "12.5",
             "a variable that refers to a variable");
}

void testReserved(IDispatch* hr) {
  for (const UndescribedOperation& operation : kUndescribedOperations) {
    const std::string name(operation.name);
    std::wstring wide = automation::toWide(name);
    auto* asked = wide.data();
    DISPID id = 0;
    checkStatus(hr->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &id), S_OK, name);
    check(id == operation.dispatchId, name + " has its reserved id");
    const Variant argument("E0001");
    const Outcome refused = call(hr, wide, {argument.raw(), argument.raw()});
    checkStatus(refused.scode, automation::statusOf(445), name);
    checkStatus(call(hr, wide, {argument.raw(), argument.raw()}, {L"Anything"}).scode,
                automation::statusOf(445), name + " with a named argument");
    check(refused.text.find(name) != std::string::npos, name + " is named in the error");
  }
}

}  // namespace

void testCalls() {
  const auto hr = create<::_HRObject>(__uuidof(HRObject));
  testEarly(*hr.Get());
  testLate(hr.Get());
  testReserved(hr.Get());
  ComPtr<ISupportErrorInfo> supports;
  check(SUCCEEDED(hr.As(&supports)), "ISupportErrorInfo");
  checkStatus(supports->InterfaceSupportsErrorInfo(__uuidof(::_HRObject)), S_OK,
              "error information of the dual interface");
}

}  // namespace kt7::client
