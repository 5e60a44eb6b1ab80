#include <CLI/CLI.hpp>
#include <array>
#include <iostream>
#include <limits>

#include "command.h"
#include "fronts/cli/line/code_argument.h"
#include "fronts/cli/line/open_company.h"
#include "fronts/cli/pages/user_report.h"
#include "fronts/common/nearest_name.h"
#include "host/access/user_rights.h"
#include "host/access/user_view.h"
#include "host/data/contract/database.h"
#include "host/schema/engine/transaction.h"

namespace kt7::cli {

namespace {

struct UserOptions {
  DatabaseOptions database;
  host::UserEntry entry;
  host::Grant grant;  // or what is to be taken away
};

void addUserArgument(CLI::App& command, std::int32_t& user) {
  command.add_option("user", user, "The user's number")
      ->required()
      ->type_name("NUMBER")
      ->check(CLI::Range(1, std::numeric_limits<std::int32_t>::max()));
}

/// Runs the work in one transaction on a connection of its own.
template <typename Work>
void inTransaction(const std::string& connectionString, Work work) {
  const auto connection = openCompany(connectionString);
  {
    schema::Transaction transaction(*connection);
    work(*connection);
    transaction.commit();
  }
  connection->Close();
}

int addOne(const UserOptions& given, Console& console) {
  if (given.entry.name) newText(*given.entry.name, "user's name", "KT7TUser", "TUsrName");
  const std::string connectionString = given.database.connectionString();
  given.database.clock();
  inTransaction(connectionString,
                [&](ado::Connection& connection) { host::addUser(connection, given.entry); });
  const std::string user = std::to_string(given.entry.user);
  console.out << "User " << user << " is there"
              << (given.entry.administrator ? ", administrator without restrictions" : "")
              << (given.entry.moduleAdministrator ? ", administrator of the module HR" : "")
              << ".\nNext: kt7hr user grant " << user << " --type CODE --branch CODE\n";
  return kDone;
}

bool namesRights(const host::Grant& grant) {
  return !grant.rights.empty() || !grant.types.empty() || !grant.branches.empty();
}

using Check = const std::string& (*)(const std::string& code, const std::string& what);

void checkCodes(const host::Grant& grant, Check check) {
  for (const std::string& key : grant.rights) check(key, "a right");
  for (const std::string& type : grant.types) check(type, "an employee type");
  for (const std::string& branch : grant.branches) check(branch, "a branch");
}

/// Hosts may keep rights of their own, but a misspelt key would open nothing in silence.
void warnOfUnknownRights(const host::Grant& grant, Console& console) {
  constexpr std::array<std::string_view, 2> kKnown{host::kSeesAllTypes, host::kSeesAllBranches};
  for (const std::string& key : grant.rights) {
    if (std::find(kKnown.begin(), kKnown.end(), key) != kKnown.end()) continue;
    say(console, "no access filter asks for the right '" + key + "'" + didYouMean(key, kKnown));
  }
}

[[noreturn]] void refuseUnknownUser(std::int32_t user) {
  const std::string number = std::to_string(user);
  throw std::runtime_error(host::UnknownUser(user).what() + ("; kt7hr user add " + number) +
                           " makes one");
}

int grantAll(const UserOptions& given, Console& console) {
  if (!namesRights(given.grant)) {
    throw WrongUse("nothing to grant; give --right, --type or --branch");
  }
  checkCodes(given.grant, &newCode);
  const std::string connectionString = given.database.connectionString();
  given.database.clock();
  host::HostPlatform platform;
  const auto utility = platform.createUtilityObject();
  try {
    inTransaction(connectionString, [&](ado::Connection& connection) {
      host::grantRights(connection, given.grant, *utility);
    });
  } catch (const host::UnknownUser&) {
    refuseUnknownUser(given.grant.user);
  }
  warnOfUnknownRights(given.grant, console);
  console.out << userReport(host::readUserView(platform, connectionString, given.grant.user));
  return kDone;
}

int revokeAll(const UserOptions& given, Console& console) {
  const host::Revocation revocation{given.grant, given.entry.administrator,
                                    given.entry.moduleAdministrator};
  if (!namesRights(given.grant) && !revocation.administrator && !revocation.moduleAdministrator) {
    throw WrongUse(
        "nothing to revoke; give --right, --type, --branch, --administrator or "
        "--module-administrator");
  }
  checkCodes(given.grant, &knownCode);
  const std::string connectionString = given.database.connectionString();
  given.database.clock();
  inTransaction(connectionString,
                [&](ado::Connection& connection) { host::revokeRights(connection, revocation); });
  host::HostPlatform platform;
  console.out << userReport(host::readUserView(platform, connectionString, given.grant.user));
  return kDone;
}

int showOne(const UserOptions& given, Console& console) {
  const std::string connectionString = given.database.connectionString();
  given.database.clock();
  openCompany(connectionString);
  host::HostPlatform platform;
  const host::UserView view = host::readUserView(platform, connectionString, given.entry.user);
  if (!view.registered && !view.hasRights) refuseUnknownUser(view.user);
  console.out << userReport(view);
  return kDone;
}

using Action = int (*)(const UserOptions& given, Console& console);

void choose(CLI::App& command, CommandLine& line, const std::shared_ptr<UserOptions>& given,
            Action action) {
  given->database.addTo(command);
  command.callback([given, &line, action] {
    line.chosen = [given, &line, action] { return action(*given, line.console); };
  });
}

void declareAdd(CLI::App& group, CommandLine& line) {
  const auto given = std::make_shared<UserOptions>();
  CLI::App& command = addCommand(group, "add", "Add a user, or complete one who is there",
                                 "kt7hr user add 7 --name Somchai");
  addUserArgument(command, given->entry.user);
  command.add_option("--name", given->entry.name, "The user's name")->type_name("NAME");
  command.add_flag("--administrator", given->entry.administrator, "Sees everything");
  command.add_flag("--module-administrator", given->entry.moduleAdministrator,
                   "Administrator of the module HR: may open every salary");
  choose(command, line, given, &addOne);
}

/// The user and the rights; `which` says how welfare and salaries belong to the types.
void addRights(CLI::App& command, host::Grant& grant, const std::string& which) {
  addUserArgument(command, grant.user);
  command
      .add_option("--right", grant.rights,
                  "HRMASTERALLTYPE sees employees of every type, HRMASTERALLBRANCH every branch")
      ->type_name("KEY")
      ->allow_extra_args(false);
  CLI::Option* type =
      command.add_option("--type", grant.types, "An employee type that the user may see")
          ->type_name("CODE")
          ->allow_extra_args(false);
  command.add_flag("--welfare", grant.welfare, which + " the welfare of these types")->needs(type);
  command.add_flag("--salary", grant.salary, which + " the salaries of these types")->needs(type);
  command.add_option("--branch", grant.branches, "A branch that the user may see")
      ->type_name("CODE")
      ->allow_extra_args(false);
}

void declareGrant(CLI::App& group, CommandLine& line) {
  const auto given = std::make_shared<UserOptions>();
  CLI::App& command = addCommand(group, "grant", "Give a user rights; those already given stay",
                                 "kt7hr user grant 7 --type M1 --salary --branch BR01");
  addRights(command, given->grant, "Also");
  choose(command, line, given, &grantAll);
}

void declareRevoke(CLI::App& group, CommandLine& line) {
  const auto given = std::make_shared<UserOptions>();
  CLI::App& command =
      addCommand(group, "revoke", "Take rights from a user, all that are named or none",
                 "kt7hr user revoke 7 --type M1 --salary");
  addRights(command, given->grant, "Only");
  command.add_flag("--administrator", given->entry.administrator,
                   "Sees from now on what the rights open");
  command.add_flag("--module-administrator", given->entry.moduleAdministrator,
                   "Is no administrator of the module HR any more");
  choose(command, line, given, &revokeAll);
}

void declareShow(CLI::App& group, CommandLine& line) {
  const auto given = std::make_shared<UserOptions>();
  CLI::App& command = addCommand(group, "show", "Say what a user may see and which tokens fail",
                                 "kt7hr user show 7");
  addUserArgument(command, given->entry.user);
  choose(command, line, given, &showOne);
}

}  // namespace

void addUser(CLI::App& app, CommandLine& line) {
  CLI::App& group = addCommand(app, "user", "Users and what they may see",
                               "kt7hr user grant 7 --type M1 --salary --branch BR01");
  group.require_subcommand(1);
  declareAdd(group, line);
  declareGrant(group, line);
  declareRevoke(group, line);
  declareShow(group, line);
}

}  // namespace kt7::cli
