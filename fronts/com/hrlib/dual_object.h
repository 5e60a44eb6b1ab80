#pragma once

#include "fronts/com/automation/automation_object.h"
#include "fronts/com/automation/status.h"
#include "fronts/com/automation/text.h"
#include "fronts/com/hrlib/member_table.h"
#include "fronts/com/hrlib/type_library.h"

namespace kt7::hrlib {

/// IDispatch of a dual interface. Class gives its members as
/// `static std::span<const NamedCall<Class>> namedCalls()` and `static constexpr const char*
/// kSource`, the source of its errors. Arguments are converted here rather than by the platform's
/// type information, which refuses the references that script hosts pass.
template <typename Class, typename Dual>
class DualObject : public automation::AutomationObject<Dual> {
 public:
  using automation::AutomationObject<Dual>::AutomationObject;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** information) override {
    if (information == nullptr) return E_POINTER;
    *information = nullptr;
    return index == 0 ? typeInformation(__uuidof(Dual), information) : DISP_E_BADINDEX;
  }

  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override {
    if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
    for (const NamedCall<Class>& call : Class::namedCalls()) {
      if (!automation::equalNoCase(call.name, names[0])) continue;
      const MemberName member{call.name, call.id, call.parameters, call.anyArguments};
      return fillIds(&member, names, count, ids);
    }
    return fillIds(nullptr, names, count, ids);
  }

  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* given,
                                   VARIANT* answer, EXCEPINFO* exception, UINT*) override {
    for (const NamedCall<Class>& call : Class::namedCalls()) {
      if (call.id != id) continue;
      const DISPPARAMS none{};
      const DISPPARAMS& parameters = given != nullptr ? *given : none;
      const HRESULT status = automation::guarded(
          Class::kSource, __uuidof(Dual), [&] { dispatch(call, flags, parameters, answer); });
      return automation::moveToException(status, exception);
    }
    return DISP_E_MEMBERNOTFOUND;
  }

 private:
  void dispatch(const NamedCall<Class>& call, WORD flags, const DISPPARAMS& given,
                VARIANT* answer) {
    auto& object = static_cast<Class&>(*this);
    if (VARIANT* value = automation::putValue(given)) {
      if (call.put == nullptr) raiseReadOnly(call.name);
      call.put(object, *value);
      return;
    }
    if ((flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET)) == 0) raiseReadOnly(call.name);
    const std::size_t most = call.anyArguments ? given.cArgs : call.parameters.size();
    Variant result = call.get(object, Arguments(given, most));
    if (answer != nullptr) *answer = result.release();
  }

  [[noreturn]] static void raiseReadOnly(const std::wstring& name) {
    constexpr std::int32_t kReadOnly = 383;  // the platform's own number
    raiseCollaborator(kReadOnly, automation::toUtf8(name) + " cannot be set");
  }
};

}  // namespace kt7::hrlib
