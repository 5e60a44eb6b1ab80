#include <CLI/CLI.hpp>
#include <iostream>

#include <kt7/host/data_obj.h>
#include <kt7/hr_object.h>
#include "command.h"
#include "fronts/cli/line/code_argument.h"
#include "fronts/cli/pages/employee_sheet.h"
#include "fronts/common/display_text.h"
#include "fronts/common/table_writer.h"
#include "host/records/employee_renaming.h"
#include "host/schema/state/schema.h"

namespace kt7::cli {

namespace {

struct EmployeeOptions {
  DatabaseOptions database;
  std::string code;
  std::string newCode;
  std::string on;
  std::string format = "text";
  bool yes = false;
};

/// An open data object on the company's database and the library beside it.
struct OpenCompany {
  explicit OpenCompany(const EmployeeOptions& given)
      : dataObj(given.database.connectionString()), hr(platform) {
    platform.setNow(given.database.clock());
    dataObj.OpenConnection();
    schema::requireCompany(dataObj.Connection());
  }

  host::HostPlatform platform;
  host::HostDataObj dataObj;
  HRObject hr;
};

/// The day given with --on; none where it was left out.
std::optional<Date> givenDay(const EmployeeOptions& given) {
  if (given.on.empty()) return std::nullopt;
  Date day;
  if (!Date::tryFromIsoText(given.on, day)) {
    throw WrongUse("'" + given.on + "' is no date for --on; write 2026-01-31");
  }
  return day;
}

int showOne(const EmployeeOptions& given, Console& console) {
  knownCode(given.code, "an employee");
  const std::optional<Date> day = givenDay(given);
  OpenCompany company(given);
  const Json sheet = employeeSheet(company.platform, company.dataObj, given.code,
                                   day ? *day : company.platform.now());
  if (given.format == "json") {
    console.out << jsonText(sheet, console.outIsTerminal) << '\n';
  } else {
    writeEmployeeSheet(sheet, console.out, console.width);
  }
  return kDone;
}

/// Every place and its rows; answers the rows of all.
std::int64_t showCounts(const std::vector<CodeRows>& counts, const std::string& code,
                        Console& console) {
  console.out << "Rows that hold the code " << screens::oneLine(code) << ":\n";
  TableWriter table(
      console.out,
      {.columns = {{.width = 23}, {.width = 15}, {}}, .width = console.width, .indent = 2});
  std::int64_t all = 0;
  for (const CodeRows& each : counts) {
    all += each.rows;
    table.writeRow({each.place.table, each.place.column, std::to_string(each.rows)});
  }
  table.writeRow("in all", 2, {std::to_string(all)});
  console.out.flush();
  return all;
}

bool isConfirmed(const EmployeeOptions& given, std::int64_t rows, Console& console) {
  if (given.yes) return true;
  console.err << "Rename " << screens::oneLine(given.code) << " to " << given.newCode << " in "
              << rows << " rows? [y/N] " << std::flush;
  std::string answer;
  std::getline(console.in, answer);
  return answer == "y" || answer == "Y" || answer == "yes";
}

int renameOne(const EmployeeOptions& given, Console& console) {
  knownCode(given.code, "an employee");
  newCode(given.newCode, "an employee");
  if (given.code == given.newCode) throw WrongUse("the old and the new code are the same");
  if (!given.yes && !console.inIsTerminal) {
    throw WrongUse("nobody can be asked here and nothing was changed; give --yes to rename " +
                   given.code + " to " + given.newCode);
  }
  OpenCompany company(given);
  requireRenamable(company.dataObj.Connection(), given.code, given.newCode);
  const std::int64_t rows =
      showCounts(countCode(company.dataObj.Connection(), given.code), given.code, console);
  if (!isConfirmed(given, rows, console)) {
    say(console, "nothing was changed");
    return kFailed;
  }
  renameEmployee(company.hr, company.dataObj, given.code, given.newCode);
  console.out << screens::oneLine(given.code) << " is now " << given.newCode << ".\n";
  return kDone;
}

void declareShow(CLI::App& group, CommandLine& line) {
  const auto given = std::make_shared<EmployeeOptions>();
  CLI::App& command =
      addCommand(group, "show", "Show profile, rates, service, history, leave and balances",
                 "kt7hr employee show E0001 --on 2026-06-30");
  command.add_option("code", given->code, "The employee's code")->required()->type_name("CODE");
  command.add_option("--on", given->on, "The day to look from; today without it")
      ->type_name("DATE");
  command.add_option("--format", given->format, "text or json")
      ->check(CLI::IsMember({"text", "json"}))
      ->type_name("FORMAT")
      ->capture_default_str();
  given->database.addTo(command);
  command.callback(
      [given, &line] { line.chosen = [given, &line] { return showOne(*given, line.console); }; });
}

void declareRename(CLI::App& group, CommandLine& line) {
  const auto given = std::make_shared<EmployeeOptions>();
  CLI::App& command =
      addCommand(group, "rename", "Give an employee another code, in every table and at once",
                 "kt7hr employee rename E0001 X0001");
  command.add_option("old", given->code, "The code so far")->required()->type_name("OLD");
  command.add_option("new", given->newCode, "The new code, which nothing holds yet")
      ->required()
      ->type_name("NEW");
  command.add_flag("--yes", given->yes, "Rename without asking");
  given->database.addTo(command);
  command.callback(
      [given, &line] { line.chosen = [given, &line] { return renameOne(*given, line.console); }; });
}

}  // namespace

void addEmployee(CLI::App& app, CommandLine& line) {
  CLI::App& group = addCommand(app, "employee", "Look at an employee, or change the code",
                               "kt7hr employee show E0001");
  group.require_subcommand(1);
  declareShow(group, line);
  declareRename(group, line);
}

}  // namespace kt7::cli
