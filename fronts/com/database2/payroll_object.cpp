#include "fronts/com/database2/payroll_object.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <kt7/host/data_obj.h>
#include <kt7/host/platform.h>
#include <kt7/payroll/pay_month.h>
#include <kt7/payroll/run_errors.h>
#include <kt7/payroll/run_listener.h>
#include <kt7/payroll/run_request.h>
#include "base/text.h"
#include "fronts/com/database2/application.h"
#include "fronts/common/payroll_input.h"
#include "fronts/common/payroll_register.h"
#include "fronts/common/run_sentences.h"
#include "host/data/contract/database.h"
#include "host/data/session/connection_string.h"
#include "host/schema/state/schema.h"
#include "host/schema/transfer/import.h"

namespace kt7::database2 {

namespace {

[[noreturn]] void refuse(const std::string& text) {
  raiseCollaborator(error_number::kCallFailed, text);
}

std::unique_ptr<ado::Connection> opened(const std::string& connectionString) {
  auto connection = data::createConnection();
  connection->Open(connectionString);
  return connection;
}

/// The register as it grows, and a line for each note and failure.
class RunNotes : public payroll::RunListener {
 public:
  RunNotes(cli::RegisterWriter& slips, PayrollObject::LastRun& run) : slips_(slips), run_(run) {}

  void paid(const payroll::Slip& slip) override {
    slips_.add(slip);
    ++run_.paid;
  }
  void standing(const payroll::Slip& slip) override { slips_.add(slip); }
  void note(const std::string& text) override { run_.notes += text + "\r\n"; }
  void failed(const std::string& employee, Date payDate, const std::string& cause) override {
    note(cli::notPaid(employee, payDate, cause));
    ++run_.failed;
  }

 private:
  cli::RegisterWriter& slips_;
  PayrollObject::LastRun& run_;
};

constexpr std::string_view kLineBreak = "\r\n";

}  // namespace

void PayrollObject::Create(const std::optional<bool>& sample) {
  data::createDatabase(connectionString_);
  const auto connection = opened(connectionString_);
  const Engine engine = engineOf(data::databaseType(connectionString_));
  if (schema::hasSchema(*connection, engine)) {
    refuse(data::shownConnectionString(connectionString_) +
           " holds a company already: nothing was changed");
  }
  schema::createSchema(*connection, engine,
                       sample.value_or(false) ? schema::Content::Sample : schema::Content::Empty);
  connection->Close();
}

std::int32_t PayrollObject::Import(const std::string& table, const std::string& file) {
  std::ifstream rows(std::filesystem::path(std::u8string(file.begin(), file.end())));
  if (!rows) refuse("cannot read '" + file + "'");
  const auto connection = opened(connectionString_);
  schema::requireCompany(*connection);
  try {
    const schema::ImportResult result = schema::importTable(*connection, table, rows);
    connection->Close();
    return static_cast<std::int32_t>(result.rows);
  } catch (const schema::ImportError& error) {
    refuse("nothing was imported from '" + file + "': " + joined(error.problems(), kLineBreak));
  }
}

std::string PayrollObject::Run(const std::string& month, const std::optional<std::string>& type,
                               const std::optional<std::string>& inputFile,
                               const std::optional<std::string>& format) {
  const auto paidMonth = payroll::Month::fromText(month);
  if (!paidMonth) refuse("'" + month + "' is no month; write 2026-01");
  payroll::RunRequest request{*paidMonth, type.value_or(""), {}};
  if (inputFile && !inputFile->empty()) request.input = cli::readPayrollInput(*inputFile);

  last_ = {};
  host::HostPlatform platform(paidMonth->lastDay());
  platform.setMessageView([this](const std::string& text) {
    last_.notes += text + "\r\n";
    database2::platform().showMessage(text);
  });
  schema::requireCompany(*opened(connectionString_));
  host::HostDataObj dataObj(connectionString_);
  std::ostringstream text;
  const auto slips = cli::registerWriter(format.value_or("table"), text, month);
  try {
    RunNotes listener(*slips, last_);
    payroll::payMonth(platform, dataObj, request, listener);
  } catch (const payroll::RunStopped& stopped) {
    refuse("nothing was paid: " + joined(stopped.reasons(), kLineBreak));
  } catch (const std::exception& error) {
    // Who was paid before stays paid.
    slips->breakOff(error.what());
    last_.slips = text.str();
    throw;
  }
  slips->finish();
  return last_.slips = text.str();
}

namespace {

using Payroll = PayrollObject;

// clang-format off
constexpr std::array kMembers{
    property<Payroll, &Payroll::ConnectionString, &Payroll::setConnectionString>(L"ConnectionString"),
    answers<Payroll, &Payroll::Create>(L"Create"),
    answers<Payroll, &Payroll::Import>(L"Import"),
    answers<Payroll, &Payroll::Run>(L"Run"),
    answers<Payroll, &Payroll::Paid>(L"Paid"),
    answers<Payroll, &Payroll::Failed>(L"Failed"),
    answers<Payroll, &Payroll::Notes>(L"Notes"),
    answers<Payroll, &Payroll::Register>(L"Register"),
};
// clang-format on

}  // namespace

template <>
std::span<const MemberOf<PayrollObject>> membersOf<PayrollObject>() {
  return kMembers;
}

}  // namespace kt7::database2
