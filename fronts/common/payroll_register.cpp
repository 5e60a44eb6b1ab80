#include "payroll_register.h"

#include <array>
#include <nlohmann/json.hpp>
#include <ostream>

#include <kt7/payroll/register_amounts.h>
#include "fronts/common/display_text.h"
#include "fronts/common/money_text.h"
#include "fronts/common/run_sentences.h"
#include "host/csv/writer.h"

namespace kt7::cli {

namespace {

using payroll::RegisterAmounts;
using payroll::Slip;

struct AmountColumn {
  const char* field;
  const char* header;
  int wide;
  int narrow;
  int dropped;  // from a narrow table
  Currency RegisterAmounts::*amount;
};

/// The amounts in the order of every form of the register. A narrow table keeps what a payslip is
/// checked by, in the end what was earned and what is paid out.
constexpr std::array<AmountColumn, 10> kAmounts{
    {{"Salary", "Salary", 12, 12, 5, &RegisterAmounts::salary},
     {"Overtime", "Overtime", 10, 10, 4, &RegisterAmounts::overtime},
     {"OtherIncome", "Other inc.", 10, 10, 3, &RegisterAmounts::otherIncome},
     {"Gross", "Gross", 12, 12, 12, &RegisterAmounts::gross},
     {"SocialSecurity", "Soc. sec.", 10, 9, 9, &RegisterAmounts::socialSecurity},
     {"FundEmployee", "Fund own", 10, 10, 8, &RegisterAmounts::fundEmployee},
     {"FundEmployer", "Fund co.", 10, 10, 1, &RegisterAmounts::fundEmployer},
     {"Tax", "Tax", 10, 10, 10, &RegisterAmounts::tax},
     {"OtherDeductions", "Other ded.", 10, 10, 2, &RegisterAmounts::otherDeductions},
     {"Net", "Net", 12, 12, 0, &RegisterAmounts::net}}};

constexpr std::size_t kColumnsBeforeAmounts = 5;

TableLayout layoutFor(int width) {
  using enum TableColumn::Side;
  const bool wide = width == kAnyWidth;
  constexpr int kName = 28;
  constexpr int kLeastName = 14;
  TableLayout layout{
      .columns = {{.header = "Employee", .width = 8},
                  {.header = "Name", .width = kName, .least = wide ? kName : kLeastName},
                  {.header = "Type", .width = 4, .dropped = 7},
                  {.header = wide ? "Pay date" : "Date", .width = wide ? 10 : 5, .dropped = 11},
                  {.header = "Days", .side = Right, .width = wide ? 6 : 5, .dropped = 6}},
      .width = width};
  for (const AmountColumn& each : kAmounts) {
    layout.columns.push_back({.header = each.header,
                              .side = Right,
                              .width = wide ? each.wide : each.narrow,
                              .dropped = each.dropped});
  }
  return layout;
}

std::string daysText(double days) { return satangText(Currency::fromDouble(days)); }

void appendAmounts(std::vector<std::string>& cells, const RegisterAmounts& amounts,
                   std::string (*text)(Currency)) {
  for (const AmountColumn& column : kAmounts) cells.push_back(text(amounts.*column.amount));
}

class TableRegister : public RegisterWriter {
 public:
  TableRegister(std::ostream& out, std::string month, RegisterForm form)
      : out_(out),
        month_(std::move(month)),
        form_(std::move(form)),
        table_(out, layoutFor(form_.width)) {}

 protected:
  void writeHead() override {
    out_ << "Pay register " << month_ << "\n\n";
    table_.writeHead();
    table_.writeRule();
  }

  void writeSlip(const Slip& slip, const RegisterAmounts& amounts) override {
    // The title has the year.
    const std::size_t from = form_.width == kAnyWidth ? 0 : std::string_view("2026-").size();
    std::vector<std::string> cells{slip.employee, slip.fullName, slip.type,
                                   slip.payDate.isoDateText().substr(from), daysText(slip.payDays)};
    appendAmounts(cells, amounts, groupedText);
    table_.writeRow(cells);
  }

  void writeFoot(const Totals& totalsByType) override {
    RegisterTotal all;
    table_.writeRule();
    for (const auto& [type, total] : totalsByType) {
      writeTotal("Total " + type, total);
      all.slips += total.slips;
      all.amounts += total.amounts;
    }
    table_.writeRule();
    writeTotal("Total", all);
    table_.writeNotShown(form_.seeTheRest);
  }

  void writeBreak(const std::string& cause) override {
    table_.writeRule();
    out_ << "Not complete: " << screens::oneLine(cause) << '\n';
  }

 private:
  void writeTotal(const std::string& label, const RegisterTotal& total) {
    std::vector<std::string> cells;
    appendAmounts(cells, total.amounts, groupedText);
    table_.writeRow(label + ", " + counted(total.slips, "slip"), kColumnsBeforeAmounts, cells);
  }

  std::ostream& out_;
  std::string month_;
  RegisterForm form_;
  TableWriter table_;
};

class CsvRegister : public RegisterWriter {
 public:
  CsvRegister(std::ostream& out, bool forTerminal) : out_(out), forTerminal_(forTerminal) {}

 protected:
  void writeHead() override {
    std::vector<std::string> fields{"EmployeeCode", "EmployeeType", "PayDate", "PayDays"};
    for (const AmountColumn& column : kAmounts) fields.emplace_back(column.field);
    csv::writeRow(out_, fields);
  }

  void writeSlip(const Slip& slip, const RegisterAmounts& amounts) override {
    std::vector<std::string> cells{code(slip.employee), code(slip.type), slip.payDate.isoDateText(),
                                   daysText(slip.payDays)};
    appendAmounts(cells, amounts, satangText);
    csv::writeRow(out_, cells);
  }

  void writeFoot(const Totals&) override {}
  // A line that is no record would be read as one.
  void writeBreak(const std::string&) override {}

 private:
  std::string code(const std::string& text) const {
    return forTerminal_ ? screens::oneLine(text) : text;
  }

  std::ostream& out_;
  bool forTerminal_;
};

class JsonRegister : public RegisterWriter {
 public:
  explicit JsonRegister(std::ostream& out) : out_(out) {}

 protected:
  void writeHead() override { out_ << '['; }

  /// Numbers are written here: a JSON library would drop the second place of 12.50.
  void writeSlip(const Slip& slip, const RegisterAmounts& amounts) override {
    out_ << (first_ ? "\n" : ",\n") << R"(  {"EmployeeCode":)" << quoted(slip.employee)
         << R"(,"EmployeeType":)" << quoted(slip.type) << R"(,"PayDate":)"
         << quoted(slip.payDate.isoDateText()) << R"(,"PayDays":)" << daysText(slip.payDays);
    for (const AmountColumn& column : kAmounts) {
      out_ << ",\"" << column.field << "\":" << satangText(amounts.*column.amount);
    }
    out_ << '}';
    first_ = false;
  }

  void writeFoot(const Totals&) override { out_ << (first_ ? "]\n" : "\n]\n"); }

  void writeBreak(const std::string& cause) override {
    out_ << ",\n  {\"Error\":" << quoted(cause) << "}\n]\n";
  }

 private:
  static std::string quoted(const std::string& text) {
    std::string json =
        nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
    screens::escapeUnprintable(json);
    return json;
  }

  std::ostream& out_;
  bool first_ = true;
};

}  // namespace

void RegisterWriter::beginOnce() {
  if (!begun_) writeHead();
  begun_ = true;
}

void RegisterWriter::add(const Slip& slip) {
  beginOnce();
  const RegisterAmounts amounts = payroll::registerAmounts(slip);
  writeSlip(slip, amounts);
  RegisterTotal& total = totals_[slip.type];
  ++total.slips;
  total.amounts += amounts;
}

void RegisterWriter::finish() {
  beginOnce();
  writeFoot(totals_);
}

void RegisterWriter::breakOff(const std::string& cause) {
  if (begun_) writeBreak(cause);
}

std::unique_ptr<RegisterWriter> registerWriter(const std::string& format, std::ostream& out,
                                               const std::string& month, const RegisterForm& form) {
  if (format == "csv") return std::make_unique<CsvRegister>(out, form.forTerminal);
  if (format == "json") return std::make_unique<JsonRegister>(out);
  return std::make_unique<TableRegister>(out, month, form);
}

}  // namespace kt7::cli
