#include <array>
#include <charconv>

#include "base/text.h"
#include "employee_sheet.h"
#include "fronts/common/display_text.h"

namespace kt7::cli {

namespace {

constexpr int kLabelWidth = 18;
constexpr const char* kNotEntered = "-";

/// "1,234.50" of a number or of a decimal text; two places, a tie away from zero.
std::string amountText(const Json& amount) {
  if (amount.is_null()) return kNotEntered;
  const Currency money = amount.is_string() ? Currency::fromText(amount.get<std::string>())
                                            : Currency::fromDouble(amount.get<double>());
  constexpr std::int64_t kHalfSatang = 50;
  constexpr std::int64_t kSatang = 100;
  const std::int64_t count = money.tenThousandths();
  const std::int64_t satang = ((count < 0 ? -count : count) + kHalfSatang) / kSatang;
  std::string text = std::to_string(satang / kSatang);
  for (std::size_t at = text.size(); at > 3;) text.insert(at -= 3, 1, ',');
  const std::string rest = std::to_string(satang % kSatang);
  return (count < 0 && satang != 0 ? "-" : "") + text + (rest.size() < 2 ? ".0" : ".") + rest;
}

std::string shown(const Json& value) {
  if (value.is_null()) return kNotEntered;
  if (value.is_number_float()) return shortestText(value.get<double>());
  return value.is_string() ? screens::oneLine(value.get<std::string>()) : value.dump();
}

std::string labelled(const std::string& label, const std::string& text) {
  return screens::fitted(label, kLabelWidth) + text + "\n";
}

/// "BR01 สำนักงานใหญ่"
std::string codeAndName(const Json& profile, const std::string& field) {
  std::string text = shown(profile[field]);
  const Json& name = profile[field + "Name"];
  if (!name.is_null()) text += " " + shown(name);
  return text;
}

/// The statuses that a resignation date moves between, in words; others are the company's own.
std::string statusText(const Json& status) {
  constexpr int kLeaving = 3;
  if (!status.is_number() || status < kLeaving) return shown(status);
  return shown(status) + (status == kLeaving ? ", resignation date not passed" : ", has left");
}

std::string profileText(const Json& sheet) {
  const Json& profile = sheet["Profile"];
  std::string name;
  for (const char* field : {"Prefix", "FirstName", "MiddleName", "LastName"}) {
    if (profile[field].is_null() || profile[field] == "") continue;
    if (!name.empty()) name += " ";
    name += shown(profile[field]);
  }
  std::string text = shown(profile["EmployeeCode"]) + "  " + name + "\n\n";
  text += labelled("Number", shown(profile["EmployeeNo"]));
  text +=
      labelled("Type", shown(profile["EmployeeType"]) + " " + shown(sheet["Hours"]["TypeName"]));
  for (const char* field : {"Branch", "Division", "Department", "Section", "Position"}) {
    text += labelled(field, codeAndName(profile, field));
  }
  text += labelled("Status", statusText(profile["Status"]));
  text += labelled("Joined", shown(profile["SignDate"]));
  return text + labelled("Last day", shown(profile["ResignDate"]));
}

std::string payText(const Json& sheet) {
  const Json& hours = sheet["Hours"];
  const Json& service = sheet["Service"];
  const Json& fund = sheet["Fund"];
  std::string text = labelled("Salary", amountText(sheet["Profile"]["Salary"]));
  text += labelled("Custom amount", amountText(sheet["Profile"]["Custom"]));
  text += labelled("A day", amountText(sheet["Rates"]["DayRate"]));
  text += labelled("An hour", amountText(sheet["Rates"]["HourRate"]));
  text += labelled("Working hours", shown(hours["HoursPerDay"]) + " a day, " +
                                        shown(hours["HoursPerWeek"]) + " a week, " +
                                        shown(hours["HoursPerMonth"]) + " a month");
  const int months = service["Months"].get<int>();
  text += labelled("Service", std::to_string(months / 12) + " years " +
                                  std::to_string(months % 12) + " months on " + shown(sheet["On"]));
  const bool member = fund["Member"].is_boolean() && fund["Member"].get<bool>();
  text += labelled("Fund", (member ? "member, own " + shown(fund["OwnRate"]) + " %, employer "
                                   : "no member, the employer's rate would be ") +
                               shown(fund["EmployerRate"]) + " %");
  return text;
}

std::string historyText(const Json& rows) {
  std::string text = "\nPosition history\n";
  if (rows.empty()) return text + "  none\n";
  for (const Json& row : rows) {
    text += "  " + screens::fitted(shown(row["Line"]), 4) + shown(row["From"]) + "  " +
            screens::fitted(shown(row["Position"]), 24) + "  " +
            screens::fitted(shown(row["Section"]), 24) + "  " + amountText(row["Salary"]) + "\n";
  }
  return text;
}

std::string leaveText(const Json& leave) {
  if (leave["Year"] == 0) return "\nLeave\n  no leave year on that day\n";
  std::string text = "\nLeave year " + shown(leave["Year"]);
  if (!leave["Name"].is_null()) text += " (" + shown(leave["Name"]) + ")";
  text += "\n";
  if (leave["Allowances"].empty()) return text + "  no allowances\n";
  for (const Json& row : leave["Allowances"]) {
    text += "  " + screens::fitted(shown(row["LeaveName"]), 24) + "  " + shown(row["Allowed"]) +
            " days, carried " + shown(row["Carried"]) + ", used " + shown(row["Used"]) + "\n";
  }
  return text;
}

std::string balanceText(const Json& sheet) {
  const Json& balances = sheet["Balances"];
  std::string text = "\nBalances of " + shown(balances["Year"]) + " up to " + shown(sheet["On"]) +
                     ", pay dates: " + shown(balances["PayDates"]) + "\n";
  constexpr std::array<std::array<const char*, 2>, 9> kLines{{{"Salary", "Salary"},
                                                              {"Overtime", "Overtime"},
                                                              {"Bonus", "Bonus"},
                                                              {"Income", "All income"},
                                                              {"SocialSecurity", "Social security"},
                                                              {"FundEmployee", "Fund"},
                                                              {"Tax", "Tax"},
                                                              {"Deductions", "All deductions"},
                                                              {"Net", "Net"}}};
  std::size_t widest = 0;
  for (const auto& line : kLines) {
    widest = std::max(widest, amountText(balances[line[0]]).size());
  }
  for (const auto& line : kLines) {
    const std::string amount = amountText(balances[line[0]]);
    text += "  " + screens::fitted(line[1], kLabelWidth) +
            std::string(widest - amount.size(), ' ') + amount + "\n";
  }
  return text;
}

}  // namespace

std::string employeeSheetText(const Json& sheet) {
  return profileText(sheet) + payText(sheet) + historyText(sheet["History"]) +
         leaveText(sheet["Leave"]) + balanceText(sheet);
}

}  // namespace kt7::cli
