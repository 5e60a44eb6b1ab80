#pragma once

#include "fronts/cli/line/options.h"

namespace kt7::cli {

// One function a subcommand: declares it and, when it is chosen, sets CommandLine::chosen.
void addInit(CLI::App& app, CommandLine& line);
void addCopy(CLI::App& app, CommandLine& line);
void addImport(CLI::App& app, CommandLine& line);
void addPayroll(CLI::App& app, CommandLine& line);
void addCall(CLI::App& app, CommandLine& line);
void addRpc(CLI::App& app, CommandLine& line);
void addSetting(CLI::App& app, CommandLine& line);
void addUser(CLI::App& app, CommandLine& line);
void addEmployee(CLI::App& app, CommandLine& line);
void addOperations(CLI::App& app, CommandLine& line);

}  // namespace kt7::cli
