#include "command_fixture.h"
#include "host/data/contract/database.h"

namespace kt7::cli {
namespace {

/// What a terminal would obey: controls of both ranges and turns of the direction of writing.
bool isPrintable(const std::string& text) {
  for (const char c : text) {
    if (c != '\n' && std::iscntrl(static_cast<unsigned char>(c)) != 0) return false;
  }
  for (const char* obeyed : {"\xC2\x9B", "\u202E", "\u2066"}) {
    if (text.find(obeyed) != std::string::npos) return false;
  }
  return true;
}

const std::vector<std::string> kObeyed{"\x1b[2J", "\x7f", "\t", "\u009b2J", "\u202e", "\u2066"};

class Texts : public Commands {
 protected:
  Texts() {
    done({"init", "--sample"});
    done({"user", "add", "7"});
  }
  std::string dump() {
    std::string rows;
    for (const char* sql :
         {"SELECT COUNT(*) FROM KT7TBranch", "SELECT COUNT(*) FROM KT7TUser",
          "SELECT COUNT(*) FROM KT7TUserRight", "SELECT COUNT(*) FROM KT7TSetting",
          "SELECT COUNT(*) FROM KT7TEmpSlipDoc",
          "SELECT COUNT(*) FROM KT7TEmployee WHERE TEmpCode='E0001'"}) {
      rows += asked(sql) + " ";
    }
    return rows;
  }
};

TEST_F(Texts, ThatOneEngineWouldRefuseComeInNowhere) {
  const std::string before = dump();
  std::vector<std::string> bad{"X#$2026-01-31#$", "X#$#$", "X\xff", "X\u200b",
                               std::string(1001, 'x')};
  for (const std::string& obeyed : kObeyed) bad.push_back("X" + obeyed + "Y");
  for (const std::string& text : bad) {
    const std::string rows = "TBraName,TBraCode\na,B1\nb,\"" + text + "\"\n";
    const std::string input =
        "EmployeeCode,PayDate,Kind,Quantity,Amount\nE0001,2026-01-31,\"" + text + "\",,5\n";
    const std::string pay = written("input.csv", input);
    const Outcome imported = ask({"import", "KT7TBranch", written("rows.csv", rows)});
    EXPECT_TRUE(says(imported.err, "line 3, column TBraCode")) << imported.err;
    for (const Outcome& outcome :
         {imported, ask({"employee", "rename", "E0001", text, "--yes"}),
          ask({"user", "grant", "7", "--right", text}), ask({"user", "add", "8", "--name", text}),
          ask({"setting", "set", text, "1"}), ask({"setting", "set", "CompanyName", text}),
          ask({"payroll", "--month", "2026-01", "--input", pay})}) {
      EXPECT_NE(outcome.exitCode, kDone) << text << outcome.out;
      EXPECT_TRUE(isPrintable(outcome.err)) << outcome.err;
    }
  }
  EXPECT_EQ(dump(), before);
}

TEST_F(Texts, ThatStandThereReachNoTerminalRaw) {
  std::string all = "Z";
  for (const std::string& obeyed : kObeyed) all.append(obeyed).append("|");
  const std::vector<std::string> statements{
      "UPDATE KT7TEmployee SET TEmpFirstName='" + all + "', TEmpCode=TEmpCode||'" + all +
          "' WHERE TEmpCode<'E0003'",
      "UPDATE KT7TEmployee SET TEmpSignDate=NULL, TEmpCode='E" + all + "' WHERE TEmpCode='E0032'",
      "UPDATE KT7TEmployee2 SET TEm2TEmpCode=TEm2TEmpCode||'" + all +
          "' WHERE TEm2TEmpCode<'E0003'",
      "UPDATE KT7TUser SET TUsrName='" + all + "'",
      "INSERT INTO KT7TUserRight (TUsRTUsrID, TUsRKey) VALUES (7, '" + all + "')"};
  for (const std::string& sql : statements) execute(sql);
  const std::string code = "E0001" + all;
  for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{
           {"payroll", "--month", "2026-01"},
           {"payroll", "--month", "2026-01", "--format", "csv"},
           {"payroll", "--month", "2026-01", "--format", "json"},
           {"employee", "show", code},
           {"employee", "show", code, "--format", "json"},
           {"employee", "show", all},
           {"user", "show", "7"},
           {"call", "GETSectionHourRate", R"({"SectionCode":"')" + std::string("\u009b") + R"("})"},
           {"call", "GETDAYRATE", all},
           {all},
           {"payroll", all},
           {"import", all, "x"},
           {"import", "KT7TBranch", all},
           {"employee", "rename", code, "E0001", "--yes"}}) {
    const Outcome outcome = ask(words, "", {.out = true});
    EXPECT_TRUE(isPrintable(outcome.out)) << outcome.out;
    EXPECT_TRUE(isPrintable(outcome.err)) << outcome.err;
    EXPECT_FALSE((outcome.out + outcome.err).empty()) << words[0];
  }
  // Elsewhere the codes are data.
  const std::string csv = ask({"payroll", "--month", "2026-01", "--format", "csv"}).out;
  EXPECT_TRUE(says(csv, "E0002" + all)) << csv;
}

}  // namespace
}  // namespace kt7::cli
