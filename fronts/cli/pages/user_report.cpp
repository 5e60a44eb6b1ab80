#include "user_report.h"

#include "base/text.h"
#include "fronts/common/display_text.h"

namespace kt7::cli {

namespace {

using Codes = std::vector<host::NamedCode>;

/// "M1 (monthly), W4 (weekly)"; "none" for nothing.
std::string listed(const Codes& codes) {
  if (codes.empty()) return "none";
  std::vector<std::string> texts;
  for (const host::NamedCode& each : codes) {
    const std::string name = each.name.empty() ? "" : " (" + screens::oneLine(each.name) + ")";
    texts.push_back(screens::oneLine(each.code) + name);
  }
  return joined(texts, ", ");
}

std::string seenEmployees(const host::UserView& view) {
  return "That is " + std::to_string(view.employeesSeen) + " of " + std::to_string(view.employees) +
         " employees.\n";
}

bool sameCodes(const Codes& a, const Codes& b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (a[i].code != b[i].code) return false;
  }
  return true;
}

std::string salaryLines(const host::UserView& view) {
  if (sameCodes(view.salaryTypes, view.openSalaries)) {
    return "Salaries of the types: " + listed(view.salaryTypes) + "\n";
  }
  const bool all = view.moduleAdministrator;
  return "Salaries one by one, of the types: " + listed(view.openSalaries) +
         (all ? ", as administrator of the module\n" : "\n") +
         "Salaries in lists, of the types: " + listed(view.salaryTypes) + "\n";
}

std::string deadTokenLine(const host::UserView& view, const host::DeadToken& dead) {
  std::string line = "Does not hold: the right to " +
                     std::string(dead.ofSalary ? "salaries" : "welfare") + " of type " +
                     screens::oneLine(dead.typeCode) + "; its token ";
  if (!dead.ownerKnown) return line + "fits no user and type known here\n";
  line += "was made for ";
  line += dead.ownerUser == view.user ? "this user" : "user " + std::to_string(dead.ownerUser);
  return line + " and type " + screens::oneLine(dead.ownerType) + "\n";
}

std::string restrictedView(const host::UserView& view) {
  std::string text = "Employees of the types: ";
  text += view.allTypes ? "all, by the right to every type\n" : listed(view.types) + "\n";
  text += "In the branches: ";
  text += view.allBranches ? "all, by the right to every branch\n" : listed(view.branches) + "\n";
  text += seenEmployees(view);
  text += "Welfare of the types: " + listed(view.welfareTypes) + "\n";
  return text + salaryLines(view);
}

}  // namespace

std::string userReport(const host::UserView& view) {
  std::string text = "User " + std::to_string(view.user);
  if (!view.name.empty()) text += " (" + screens::oneLine(view.name) + ")";
  if (!view.registered) text += ", who has rights but was never added";
  if (view.moduleAdministrator) text += ", administrator of the module HR";
  if (view.administrator) {
    text +=
        ", administrator without restrictions\nEmployees, welfare and salaries of all types in "
        "all branches.\n" +
        seenEmployees(view);
  } else {
    text += "\n" + restrictedView(view);
  }
  for (const std::string& key : view.otherRights)
    text += "Also holds the right " + screens::oneLine(key) + "\n";
  for (const host::DeadToken& dead : view.deadTokens) text += deadTokenLine(view, dead);
  return text;
}

}  // namespace kt7::cli
