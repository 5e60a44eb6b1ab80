#include "payroll_register.h"

#include <array>
#include <nlohmann/json.hpp>
#include <ostream>

#include <kt7/payroll/register_amounts.h>
#include "base/text.h"
#include "fronts/common/display_text.h"
#include "payroll/facts/satang.h"

namespace kt7::cli {

namespace {

using payroll::RegisterAmounts;
using payroll::Slip;

struct AmountColumn {
  const char* field;
  const char* header;
  int width;
  Currency RegisterAmounts::*amount;
};

/// The amounts in the order of every form of the register.
constexpr std::array<AmountColumn, 10> kAmounts{
    {{"Salary", "Salary", 12, &RegisterAmounts::salary},
     {"Overtime", "Overtime", 10, &RegisterAmounts::overtime},
     {"OtherIncome", "Other inc.", 10, &RegisterAmounts::otherIncome},
     {"Gross", "Gross", 12, &RegisterAmounts::gross},
     {"SocialSecurity", "Soc. sec.", 10, &RegisterAmounts::socialSecurity},
     {"FundEmployee", "Fund own", 10, &RegisterAmounts::fundEmployee},
     {"FundEmployer", "Fund co.", 10, &RegisterAmounts::fundEmployer},
     {"Tax", "Tax", 10, &RegisterAmounts::tax},
     {"OtherDeductions", "Other ded.", 10, &RegisterAmounts::otherDeductions},
     {"Net", "Net", 12, &RegisterAmounts::net}}};

constexpr int kCodeWidth = 8;
constexpr int kNameWidth = 28;
constexpr int kTypeWidth = 4;
constexpr int kDateWidth = 10;
constexpr int kDaysWidth = 6;

/// "-1234.50"
std::string twoPlaces(Currency amount) {
  const std::string four = payroll::toSatang(amount).toText();
  return four.substr(0, four.size() - 2);
}

std::string twoPlaces(double number) { return twoPlaces(Currency::fromDouble(number)); }

/// "-1,234.50"
std::string grouped(Currency amount) {
  std::string text = twoPlaces(amount);
  const std::size_t first = text.front() == '-' ? 1 : 0;
  for (std::size_t at = text.find('.'); at > first + 3;) text.insert(at -= 3, 1, ',');
  return text;
}

std::string right(const std::string& text, int width) {
  const int blanks = width - static_cast<int>(text.size());
  return " " + std::string(static_cast<std::size_t>(std::max(blanks, 0)), ' ') + text;
}

/// Codes are shown whole, whatever their length.
std::string left(const std::string& code, int width) {
  const std::string text = screens::oneLine(code);
  return screens::displayWidth(text) > width ? text : screens::fitted(text, width);
}

class TableRegister : public RegisterWriter {
 public:
  TableRegister(std::ostream& out, std::string month) : out_(out), month_(std::move(month)) {}

 protected:
  void writeHead() override {
    out_ << "Pay register " << month_ << "\n\n";
    std::string line = left("Employee", kCodeWidth) + " " + left("Name", kNameWidth) + " " +
                       left("Type", kTypeWidth) + " " + left("Pay date", kDateWidth) +
                       right("Days", kDaysWidth);
    for (const AmountColumn& column : kAmounts) line += right(column.header, column.width);
    ruleLength_ = line.size();
    out_ << line << '\n';
    writeRule();
  }

  void writeSlip(const Slip& slip, const RegisterAmounts& amounts) override {
    out_ << left(slip.employee, kCodeWidth) << ' '
         << screens::fitted(screens::oneLine(slip.fullName), kNameWidth) << ' '
         << left(slip.type, kTypeWidth) << ' ' << slip.payDate.isoDateText()
         << right(twoPlaces(slip.payDays), kDaysWidth);
    writeAmounts(amounts);
  }

  void writeFoot(const Totals& totalsByType) override {
    RegisterTotal all;
    writeRule();
    for (const auto& [type, total] : totalsByType) {
      writeTotal("Total " + type, total);
      all.slips += total.slips;
      all.amounts += total.amounts;
    }
    writeRule();
    writeTotal("Total", all);
  }

  void writeBreak(const std::string& cause) override {
    writeRule();
    out_ << "Not complete: " << screens::oneLine(cause) << '\n';
  }

 private:
  void writeTotal(const std::string& label, const RegisterTotal& total) {
    constexpr int kWidth = kCodeWidth + kNameWidth + kTypeWidth + kDateWidth + 3;
    const std::string slips = std::to_string(total.slips) + (total.slips == 1 ? " slip" : " slips");
    out_ << left(label + ", " + slips, kWidth) << right("", kDaysWidth);
    writeAmounts(total.amounts);
  }

  void writeAmounts(const RegisterAmounts& amounts) {
    for (const AmountColumn& column : kAmounts) {
      out_ << right(grouped(amounts.*column.amount), column.width);
    }
    out_ << '\n';
  }

  void writeRule() { out_ << std::string(ruleLength_, '-') << '\n'; }

  std::ostream& out_;
  std::string month_;
  std::size_t ruleLength_ = 0;
};

class CsvRegister : public RegisterWriter {
 public:
  CsvRegister(std::ostream& out, bool forTerminal) : out_(out), forTerminal_(forTerminal) {}

 protected:
  void writeHead() override {
    out_ << "EmployeeCode,EmployeeType,PayDate,PayDays";
    for (const AmountColumn& column : kAmounts) out_ << ',' << column.field;
    out_ << '\n';
  }

  void writeSlip(const Slip& slip, const RegisterAmounts& amounts) override {
    out_ << quoted(slip.employee) << ',' << quoted(slip.type) << ',' << slip.payDate.isoDateText()
         << ',' << twoPlaces(slip.payDays);
    for (const AmountColumn& column : kAmounts) out_ << ',' << twoPlaces(amounts.*column.amount);
    out_ << '\n';
  }

  void writeFoot(const Totals&) override {}
  // A line that is no record would be read as one.
  void writeBreak(const std::string&) override {}

 private:
  std::string quoted(const std::string& code) const {
    std::string text = forTerminal_ ? screens::oneLine(code) : code;
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    return '"' + replaceAll(text, "\"", "\"\"") + '"';
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
         << quoted(slip.payDate.isoDateText()) << R"(,"PayDays":)" << twoPlaces(slip.payDays);
    for (const AmountColumn& column : kAmounts) {
      out_ << ",\"" << column.field << "\":" << twoPlaces(amounts.*column.amount);
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
                                               const std::string& month, bool forTerminal) {
  if (format == "csv") return std::make_unique<CsvRegister>(out, forTerminal);
  if (format == "json") return std::make_unique<JsonRegister>(out);
  return std::make_unique<TableRegister>(out, month);
}

}  // namespace kt7::cli
