#include <array>
#include <ostream>

#include "base/text.h"
#include "employee_sheet.h"
#include "fronts/common/display_text.h"
#include "fronts/common/money_text.h"
#include "fronts/common/table_writer.h"

namespace kt7::cli {

namespace {

constexpr int kLabelWidth = 17;
constexpr const char* kNotEntered = "-";

/// "1,234.50" of a number or of a decimal text.
std::string amountText(const Json& amount) {
  if (amount.is_null()) return kNotEntered;
  return groupedText(amount.is_string() ? Currency::fromText(amount.get<std::string>())
                                        : Currency::fromDouble(amount.get<double>()));
}

std::string shown(const Json& value) {
  if (value.is_null()) return kNotEntered;
  if (value.is_number_float()) return shortestText(value.get<double>());
  return value.is_string() ? screens::oneLine(value.get<std::string>()) : value.dump();
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

void writeProfile(const Json& sheet, std::ostream& out, TableWriter& facts) {
  const Json& profile = sheet["Profile"];
  std::vector<std::string> names;
  for (const char* field : {"Prefix", "FirstName", "MiddleName", "LastName"}) {
    const std::string name = profile[field].is_null() ? "" : shown(profile[field]);
    if (!name.empty()) names.push_back(name);
  }
  out << shown(profile["EmployeeCode"]) << "  " << joined(names, " ") << "\n\n";
  facts.writeRow({"Number", shown(profile["EmployeeNo"])});
  facts.writeRow(
      {"Type", shown(profile["EmployeeType"]) + " " + shown(sheet["Hours"]["TypeName"])});
  for (const char* field : {"Branch", "Division", "Department", "Section", "Position"}) {
    facts.writeRow({field, codeAndName(profile, field)});
  }
  facts.writeRow({"Status", statusText(profile["Status"])});
  facts.writeRow({"Joined", shown(profile["SignDate"])});
  facts.writeRow({"Last day", shown(profile["ResignDate"])});
}

void writePay(const Json& sheet, TableWriter& facts) {
  const Json& hours = sheet["Hours"];
  const Json& service = sheet["Service"];
  const Json& fund = sheet["Fund"];
  facts.writeRow({"Salary", amountText(sheet["Profile"]["Salary"])});
  facts.writeRow({"Custom amount", amountText(sheet["Profile"]["Custom"])});
  facts.writeRow({"A day", amountText(sheet["Rates"]["DayRate"])});
  facts.writeRow({"An hour", amountText(sheet["Rates"]["HourRate"])});
  facts.writeRow({"Working hours", shown(hours["HoursPerDay"]) + " a day, " +
                                       shown(hours["HoursPerWeek"]) + " a week, " +
                                       shown(hours["HoursPerMonth"]) + " a month"});
  const int months = service["Months"].get<int>();
  facts.writeRow({"Service", std::to_string(months / 12) + " years " + std::to_string(months % 12) +
                                 " months on " + shown(sheet["On"])});
  const bool member = fund["Member"].is_boolean() && fund["Member"].get<bool>();
  facts.writeRow({"Fund", (member ? "member, own " + shown(fund["OwnRate"]) + " %, employer "
                                  : "no member, the employer's rate would be ") +
                              shown(fund["EmployerRate"]) + " %"});
}

void writeHistory(const Json& history, std::ostream& out, int width) {
  out << "\nPosition history\n";
  if (history.empty()) out << "  none\n";
  TableWriter table(out, {.columns = {{.width = 2},
                                      {.width = 10},
                                      {.width = 24, .least = 12},
                                      {.width = 24, .least = 12},
                                      {.width = 10}},
                          .width = width,
                          .gap = 2,
                          .indent = 2});
  for (const Json& row : history) {
    table.writeRow({shown(row["Line"]), shown(row["From"]), shown(row["Position"]),
                    shown(row["Section"]), amountText(row["Salary"])});
  }
}

void writeLeave(const Json& leave, std::ostream& out, int width) {
  if (leave["Year"] == 0) {
    out << "\nLeave\n  no leave year on that day\n";
    return;
  }
  out << "\nLeave year " << shown(leave["Year"]);
  if (!leave["Name"].is_null()) out << " (" << shown(leave["Name"]) << ")";
  out << "\n";
  if (leave["Allowances"].empty()) out << "  no allowances\n";
  TableWriter table(
      out, {.columns = {{.width = 24, .least = 24}, {}}, .width = width, .gap = 2, .indent = 2});
  for (const Json& row : leave["Allowances"]) {
    table.writeRow({shown(row["LeaveName"]), shown(row["Allowed"]) + " days, carried " +
                                                 shown(row["Carried"]) + ", used " +
                                                 shown(row["Used"])});
  }
}

void writeBalances(const Json& sheet, std::ostream& out, int width) {
  const Json& balances = sheet["Balances"];
  out << "\nBalances of " << shown(balances["Year"]) << " up to " << shown(sheet["On"])
      << ", pay dates: " << shown(balances["PayDates"]) << "\n";
  constexpr std::array<std::array<const char*, 2>, 9> kLines{{{"Salary", "Salary"},
                                                              {"Overtime", "Overtime"},
                                                              {"Bonus", "Bonus"},
                                                              {"Income", "All income"},
                                                              {"SocialSecurity", "Social security"},
                                                              {"FundEmployee", "Fund"},
                                                              {"Tax", "Tax"},
                                                              {"Deductions", "All deductions"},
                                                              {"Net", "Net"}}};
  std::vector<std::vector<std::string>> rows;
  rows.reserve(kLines.size());
  for (const auto& [field, label] : kLines) rows.push_back({label, amountText(balances[field])});
  std::vector<TableColumn> columns{{.width = kLabelWidth}, {.side = TableColumn::Side::Right}};
  widen(columns, rows);
  TableWriter table(out, {.columns = columns, .width = width, .indent = 2});
  for (const std::vector<std::string>& row : rows) table.writeRow(row);
}

}  // namespace

void writeEmployeeSheet(const Json& sheet, std::ostream& out, int width) {
  TableWriter facts(out, {.columns = {{.width = kLabelWidth}, {}}, .width = width});
  writeProfile(sheet, out, facts);
  writePay(sheet, facts);
  writeHistory(sheet["History"], out, width);
  writeLeave(sheet["Leave"], out, width);
  writeBalances(sheet, out, width);
}

}  // namespace kt7::cli
