#include <kt7/hr_object.h>
#include "base/text.h"
#include "records/organisation_text.h"
#include "support/opened.h"

namespace kt7 {

namespace {

constexpr int16_t kInUse = 1;
constexpr std::size_t kPositionCodeCharacters = 30;

}  // namespace

std::string HRObject::BUILTPOSITION2TR(DataObj& dataObj, const std::string& PositionCode) {
  const records::OrganisationText text =
      records::parseOrganisationText(PositionCode.empty() ? "00" : PositionCode);
  std::string code = firstCharacters(text.code, kPositionCodeCharacters);
  if (!dataTool().RecordExists("TPSTCode", 0, code, "KT7TPosition", dataObj.Connection(),
                               "TPSTCode", "", true)) {
    OpenRecordset position(platform_, "SELECT * FROM KT7TPosition WHERE TPSTCode='" + code + "'",
                           dataObj.Connection(), ado::kOptimistic);
    if (position->Eof()) position->AddNew();
    position->set("TPSTCode", code);
    position->set("TPSTName", text.name);
    position->set("TPSTFlag1", kInUse);
    position->set("TPSTFlag3", platform_.now());
    position->Update();
    position.close();
  }
  return code;
}

std::string HRObject::BUILTPOSITIONTR(DataObj& dataObj, const std::string& PositionCode,
                                      const std::string& PositionName) {
  return self().BUILTPOSITION2TR(
      dataObj, PositionName.empty() ? PositionCode : PositionCode + "=" + PositionName);
}

}  // namespace kt7
