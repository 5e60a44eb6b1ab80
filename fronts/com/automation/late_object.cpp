#include "fronts/com/automation/late_object.h"

#include <algorithm>

#include <kt7/error.h>
#include "fronts/com/automation/status.h"
#include "fronts/com/automation/text.h"

namespace kt7::automation {

namespace {

std::string memberName(std::string_view object, const wchar_t* member) {
  return std::string(object) + "." + toUtf8(member);
}

HRESULT invokeExtended(IDispatch& object, DISPID id, WORD flags, DISPPARAMS& parameters,
                       VARIANT* answer, EXCEPINFO& exception) {
  ComPtr<IDispatchEx> extended;
  const HRESULT status = object.QueryInterface(__uuidof(IDispatchEx), &extended);
  if (FAILED(status)) return status;
  return extended->InvokeEx(id, LOCALE_USER_DEFAULT, flags, &parameters, answer, &exception,
                            nullptr);
}

}  // namespace

MemberIds::Id MemberIds::of(IDispatch& object, const wchar_t* member, std::string_view objectName) {
  const auto at = std::find_if(rows_.begin(), rows_.end(),
                               [&](const Row& row) { return row.member == member; });
  if (at != rows_.end()) return at->id;

  Id found;
  auto* name = const_cast<LPOLESTR>(member);
  if (FAILED(object.GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &found.id))) {
    // Classes of some script hosts are known by this interface only.
    ComPtr<IDispatchEx> extended;
    found.extended = SUCCEEDED(object.QueryInterface(__uuidof(IDispatchEx), &extended));
    const BstrText text{std::string_view(toUtf8(member))};
    if (!found.extended || FAILED(extended->GetDispID(text, fdexNameCaseInsensitive, &found.id))) {
      raiseCollaborator(error_number::kCallFailed,
                        memberName(objectName, member) + ": the object has no such member");
    }
  }
  rows_.push_back({member, found});
  return found;
}

IDispatch& LateObject::required() const {
  if (!object_) raiseCollaborator(error_number::kCallFailed, name_ + " is not set");
  return *object_.Get();
}

Variant LateObject::send(const wchar_t* member, WORD flags, DISPPARAMS& parameters) const {
  IDispatch& object = required();
  MemberIds& ids = sharedIds_ != nullptr ? *sharedIds_ : ownIds_;
  const MemberIds::Id id = ids.of(object, member, name_);
  Variant answer;
  EXCEPINFO exception{};
  const bool puts = (flags & DISPATCH_PROPERTYPUT) != 0;
  VARIANT* out = puts ? nullptr : answer.out();
  HRESULT status = S_OK;
  if (id.extended) {
    status = invokeExtended(object, id.id, flags, parameters, out, exception);
  } else {
    UINT badArgument = 0;
    status = object.Invoke(id.id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, out,
                           &exception, &badArgument);
  }
  if (SUCCEEDED(status)) return answer;
  if (status != DISP_E_EXCEPTION) {
    exception = {};
    exception.scode = status;
  }
  raiseException(exception, memberName(name_, member));
}

Variant LateObject::invoke(const wchar_t* member, WORD flags, std::span<VARIANT> arguments) const {
  std::reverse(arguments.begin(), arguments.end());
  DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
  return send(member, flags, parameters);
}

void LateObject::put(const wchar_t* member, const Variant& value) const {
  VARIANT raw = value.raw();
  DISPID putId = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{&raw, &putId, 1, 1};
  send(member, DISPATCH_PROPERTYPUT, parameters);
}

LateObject LateObject::child(const Variant& answer, std::string_view childName,
                             MemberIds* sharedIds) const {
  return {objectIn(answer.raw()).Get(), name_ + "." + std::string(childName), sharedIds};
}

CLSID classOf(const std::wstring& progId) {
  CLSID classId;
  if (FAILED(CLSIDFromProgID(progId.c_str(), &classId))) {
    raiseCollaborator(error_number::kCannotCreate, "ActiveX component can't create object: '" +
                                                       toUtf8(progId) + "' is not registered");
  }
  return classId;
}

LateObject createByClass(const CLSID& classId, std::string name) {
  ComPtr<IDispatch> object;
  const HRESULT status = CoCreateInstance(
      classId, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, IID_PPV_ARGS(&object));
  if (FAILED(status)) {
    raiseCollaborator(error_number::kCannotCreate, "ActiveX component can't create object: '" +
                                                       name + "': " + systemText(status));
  }
  return {object.Get(), std::move(name)};
}

LateObject createByProgId(const std::wstring& progId) {
  return createByClass(classOf(progId), toUtf8(progId));
}

}  // namespace kt7::automation
