#include <kt7/enumerations.h>
#include <kt7/hr_object.h>
#include "records/organisation_text.h"
#include "support/opened.h"

namespace kt7 {

namespace {

constexpr int16_t kInUse = 1;
constexpr int32_t kSunday = 0;
constexpr int32_t kSaturday = 6;

void addWorkPeriod(Platform& platform, ado::Connection& connection,
                   const records::OrganisationText& text) {
  OpenRecordset period(platform,
                       "SELECT * FROM KT7TEmpWorkPeriod WHERE TWPDCode='" + text.code + "'",
                       connection, ado::kOptimistic);
  period->AddNew();
  period->set("TWPDCode", text.code);
  period->set("TWPDName", text.name);
  period->set("TWPDFlag1", kInUse);
  period->set("TWPDFlag3", platform.now());
  period->Update();
  period.close();
}

/// Intended 13: a pay type that a user set on an existing weekday is reset.
void writeWeekday(Platform& platform, ado::Connection& connection, const std::string& code,
                  int32_t weekday) {
  OpenRecordset row(platform,
                    "SELECT * FROM KT7TEmpWorkTime WHERE TWPTTWPDCode='" + code +
                        "' AND TWPTWeekDay=" + std::to_string(weekday),
                    connection, ado::kOptimistic);
  if (row->Eof()) row->AddNew();
  const bool weekend = weekday == kSunday || weekday == kSaturday;
  row->set("TWPTTWPDCode", code);
  row->set("TWPTWeekDay", weekday);
  row->set("TWPTPayType", static_cast<int16_t>(weekend ? KT7PayTypeHoliday : KT7PayTypeNormal));
  row->set("TWPTFlag1", kInUse);
  row->set("TWPTFlag3", platform.now());
  row->Update();
  row.close();
}

}  // namespace

std::string HRObject::BUILTWORKPERIODTR(DataObj& dataObj, const std::string& WorkPeriod) {
  std::string code = "OFFICE01";
  if (!WorkPeriod.empty()) {
    const records::OrganisationText text = records::parseOrganisationText(WorkPeriod);
    code = text.code;
    if (!dataTool().RecordExists("TWPDCode", 0, code, "KT7TEmpWorkPeriod", dataObj.Connection(),
                                 "TWPDCode", "", true)) {
      addWorkPeriod(platform_, dataObj.Connection(), text);
    }
  }
  for (int32_t weekday = kSunday; weekday <= kSaturday; ++weekday) {
    writeWeekday(platform_, dataObj.Connection(), code, weekday);
  }
  return code;
}

}  // namespace kt7
