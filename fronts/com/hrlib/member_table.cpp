#include "fronts/com/hrlib/member_table.h"

#include "fronts/com/automation/text.h"

namespace kt7::hrlib {

HRESULT fillIds(const MemberName* member, LPOLESTR* names, UINT count, DISPID* ids) noexcept {
  for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
  if (member == nullptr) return DISP_E_UNKNOWNNAME;
  ids[0] = member->id;
  HRESULT status = S_OK;
  for (UINT i = 1; i < count; ++i) {
    DISPID position = 0;
    for (const std::wstring& parameter : member->parameters) {
      if (automation::equalNoCase(parameter, names[i])) ids[i] = position;
      ++position;
    }
    if (member->anyArguments) ids[i] = static_cast<DISPID>(i) - 1;
    if (ids[i] == DISPID_UNKNOWN) status = DISP_E_UNKNOWNNAME;
  }
  return status;
}

}  // namespace kt7::hrlib
