#include <kt7/hr_object.h>
#include "base/setting_names.h"
#include "records/organisation_text.h"
#include "support/opened.h"

namespace kt7 {

namespace {

constexpr int16_t kInUse = 1;

/// One level of the organisation: its table and where its columns are.
struct Level {
  const char* table;
  const char* key;
  const char* answer;
  const char* select;
};

constexpr Level kBranch{"KT7TBranch", "TBraCode", "TBraCode",
                        "SELECT * FROM KT7TBranch WHERE TBraCode='"};
constexpr Level kDivision{"KT7TDivision", "TDivCode", "TDivCode",
                          "SELECT * FROM KT7TDivision WHERE TDivCode='"};
constexpr Level kDepartment{"KT7TDepartment", "TDepCode", "TDEPCode",
                            "SELECT * FROM KT7TDepartment WHERE TDEPCode='"};
constexpr Level kSection{"KT7TSection", "TSecCode", "TSecCode",
                         "SELECT * FROM KT7TSection WHERE TSecCode='"};

struct Records {
  Platform& platform;
  Collaborators& collaborators;
  DataObj& dataObj;
};

using Fill = void (*)(ado::Recordset&, const records::OrganisationText&,
                      const std::string& parentCode, Records&);

void fillBranch(ado::Recordset& row, const records::OrganisationText& text, const std::string&,
                Records& with) {
  row.set("TBraCode", text.code);
  row.set("TBraName", text.name);
  row.set("TBraName", text.name2);  // Intended 12: a branch keeps its second name as its name.
  row.set("TBraDoccode", text.docCode);
  row.set("TBraTBrTAlias", "BRANCH");
  row.set("TBraTCmpCode", with.collaborators.settings().ReadSettingText(
                              setting_name::kCompanyCode, with.dataObj.Connection(), 0));
  row.set("TBraFlag1", kInUse);
  row.set("TBraFlag3", with.platform.now());
  row.set("TBraTCouCode", "TH");
}

void fillDivision(ado::Recordset& row, const records::OrganisationText& text,
                  const std::string& branch, Records& with) {
  row.set("TDivCode", text.code);
  row.set("TDivName", text.name);
  row.set("TDivName2", text.name2);
  row.set("TDivDocCode", text.docCode);
  row.set("TDivTBraCode", branch);
  row.set("TDivFlag1", kInUse);
  row.set("TDivFlag3", with.platform.now());
}

void fillDepartment(ado::Recordset& row, const records::OrganisationText& text,
                    const std::string& division, Records& with) {
  row.set("TDEPCode", text.code);
  row.set("TDEPName", text.name);
  row.set("TDEPName2", text.name2);
  row.set("TDEPDocCode", text.docCode);
  row.set("TDEPTDivCode", division);
  row.set("TDepFlag1", kInUse);
  row.set("TDepFlag3", with.platform.now());
}

void fillSection(ado::Recordset& row, const records::OrganisationText& text,
                 const std::string& department, Records& with) {
  row.set("TSecCode", text.code);
  row.set("TSecName", text.name);
  row.set("TSecName2", text.name2);
  row.set("TSecDocCode", text.docCode);
  row.set("TSecTDepCode", department);
  row.set("TSecFlag1", kInUse);
  row.set("TSecFlag3", with.platform.now());
}

/// Makes sure that the level's row exists; answers its code, "" for an empty text.
std::string build(const Level& level, const std::string& levelText, const std::string& parentCode,
                  Fill fill, Records& with) {
  if (levelText.empty()) return "";
  const records::OrganisationText text = records::parseOrganisationText(levelText);
  if (with.collaborators.dataTool().RecordExists(level.key, 0, text.code, level.table,
                                                 with.dataObj.Connection(), level.answer, "",
                                                 true)) {
    return text.code;
  }
  OpenRecordset row(with.platform, level.select + text.code + "'", with.dataObj.Connection(),
                    ado::kOptimistic);
  row->AddNew();
  fill(*row, text, parentCode, with);
  row->Update();
  row.close();
  return text.code;
}

}  // namespace

std::string HRObject::BUILTSECTIONTR(DataObj& dataObj, const std::string& Branch,
                                     const std::string& Division, const std::string& Department,
                                     const std::string& Section) {
  Records with{.platform = platform_, .collaborators = collaborators_, .dataObj = dataObj};
  const std::string branch = build(kBranch, Branch.empty() ? "HEAD" : Branch, "", fillBranch, with);
  const std::string division =
      build(kDivision, Division.empty() ? Section : Division, branch, fillDivision, with);
  const std::string department =
      build(kDepartment, Department.empty() ? Section : Department, division, fillDepartment, with);
  return build(kSection, Section, department, fillSection, with);
}

}  // namespace kt7
