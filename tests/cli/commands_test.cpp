#include "command_fixture.h"
#include "host/data/contract/database.h"

namespace kt7::cli {
namespace {

bool isOneLine(const std::string& text) {
  return text.starts_with("kt7hr: ") && text.find('\n') == text.size() - 1;
}

TEST_F(Commands, RefuseWrongUseInOneLineThatHelps) {
  const std::string db = database("none.db");
  const std::vector<Refusal> cases{
      {{"inti"}, kWrongUse, "did you mean 'init'?"},
      {{"--vresion"}, kWrongUse, "did you mean '--version'?"},
      {{"init", "--smaple", "--db", db}, kWrongUse, "did you mean '--sample'?"},
      {{"init"}, kWrongUse, "KT7HR_DB"},
      {{"init", "--db", "company.db"}, kWrongUse, "'Driver=SQLite;Database=company.db'"},
      {{"init", "--db", "Driver=SQLite;Database"}, kWrongUse, "keyword=value"},
      {{"rpc", "--db", db, "--now", "31/1/2026"}, kWrongUse, "2026-01-31"},
      {{"rpc", "--db", db, "--now", "2026-02-30"}, kWrongUse, "2026-02-30"},
      {{"rpc", "--db", db, "--user", "seven"}, kWrongUse, "seven"},
      {{"rpc", "--db", db}, kFailed, "none.db'\" to create it"},
      {{"rpc", "--db", "Driver=Nope;Database=x"}, kFailed, "Nope"},
      {{"rpc", "--db", "Driver=SQLite;Database=x;PwdFile=" + path("no.txt")}, kFailed, "no.txt"},
      {{"rpc", "--db", "Driver=SQLite;Database=x;PwdFile="}, kWrongUse, "names no file"},
      {{"init", "--db", database("no/folder.db")}, kFailed, "no/folder.db"},
      {{"call", "GETDAYRAT", "{}", "--db", db}, kWrongUse, "did you mean 'GETDAYRATE'?"},
      {{"call", "GETDAYRATE", "{", "--db", db}, kWrongUse, "is no JSON"},
      {{"call"}, kWrongUse, "kt7hr call --help"},
      {{"import", "KT7TEmploye", "x.csv", "--db", db}, kWrongUse, "did you mean 'KT7TEmployee'?"},
      {{"import", "KT7TEmployee", path("x.csv"), "--db", db}, kFailed, "x.csv"},
      {{"setting", "set", "A", "1", "--db", "Driver=SQLite;Database=" + written("empty.db", "")},
       kFailed,
       "holds no company; kt7hr init makes one"},
      {{"setting"}, kWrongUse, "kt7hr setting --help"},
      {{"setting", "set", "", "1", "--db", db}, kWrongUse, "KEY"},
      {{"copy", "--from", db, "--to", database("target.db")}, kFailed, "none.db"},
      {{"setting", "set", "A"}, kWrongUse, "kt7hr setting set --help"},
  };
  for (const Refusal& each : cases) {
    const Outcome outcome = kt7hr(each.words);
    EXPECT_EQ(outcome.exitCode, each.exitCode) << outcome.err;
    EXPECT_TRUE(isOneLine(outcome.err)) << outcome.err;
    EXPECT_TRUE(says(outcome.err, each.hint)) << outcome.err;
    EXPECT_EQ(outcome.out, "");
  }
  for (const char* name : {"none.db", "target.db"}) {
    EXPECT_FALSE(std::filesystem::exists(path(name))) << name;
  }
}

TEST_F(Commands, ShowHelpWithAnExampleEverywhere) {
  const std::vector<std::vector<std::string>> commands{
      {}, {"init"}, {"import"}, {"call"}, {"rpc"}, {"setting"}, {"setting", "set"}};
  for (std::vector<std::string> words : commands) {
    words.emplace_back("--help");
    const Outcome outcome = kt7hr(words);
    EXPECT_EQ(outcome.exitCode, kDone);
    EXPECT_EQ(outcome.err, "");
    EXPECT_TRUE(says(outcome.out, "Example:\n  ")) << outcome.out;
  }
  const Outcome bare = kt7hr({});
  EXPECT_EQ(bare.exitCode, kDone);
  EXPECT_TRUE(says(bare.out, "kt7hr init --sample"));
  const std::string version = kt7hr({"--version"}).out;
  EXPECT_EQ(version.find("kt7hr " KT7HR_VERSION "\ndatabases: SQLite"), 0U) << version;
}

TEST_F(Commands, InitMakesACompanyOnceAndLosesNothing) {
  const Outcome made = ask({"init"});
  EXPECT_EQ(made.exitCode, kDone) << made.err;
  EXPECT_TRUE(says(made.out, "Next: kt7hr import")) << made.out;
  done({"setting", "set", "CompanyCode", "C1"});

  const Outcome again = ask({"init", "--sample"});
  EXPECT_EQ(again.exitCode, kDone) << again.err;
  EXPECT_TRUE(says(again.out, "holds a company already: nothing was changed")) << again.out;
  EXPECT_EQ(asked("SELECT TSetText FROM KT7TSetting"), "C1");
  EXPECT_EQ(asked("SELECT COUNT(*) FROM KT7TEmployee"), "0");

  const Outcome sample = kt7hr({"init", "--sample", "--db", database("sample.db")});
  EXPECT_TRUE(says(sample.out, "Next: kt7hr payroll")) << sample.out;
  EXPECT_NE(data::askOne(database("sample.db"), "SELECT COUNT(*) FROM KT7TEmployee", {}).toText(),
            "0");
}

TEST_F(Commands, SetSettingsOfAnyTextByTheirExactKey) {
  done({"init"});
  struct Case {
    const char* key;
    const char* value;
    const char* number;
  };
  const std::vector<Case> cases{
      {"STAXMaxRate", "17500", "17500"}, {"STAXMaxRate", "-0.5", "-0.5"},
      {"staxmaxrate", "1", "1"},         {"x' y", "'; DROP TABLE KT7TSetting", ""},
      {"CompanyCode", "", ""},           {"CompanyCode", "01", "1"},
      {"CompanyCode", "1e3", ""},        {"CompanyCode", "บริษัท", ""},
  };
  for (const Case& each : cases) {
    done({"setting", "set", each.key, each.value});
    const std::vector<std::string> key{each.key};
    EXPECT_EQ(asked("SELECT TSetNumber FROM KT7TSetting WHERE TSetKey=?", key), each.number);
    EXPECT_EQ(asked("SELECT TSetText FROM KT7TSetting WHERE TSetKey=?", key), each.value);
  }
  EXPECT_EQ(asked("SELECT COUNT(*) FROM KT7TSetting"), "4");
  const auto warning = [&](const char* key) { return ask({"setting", "set", key, "1"}).err; };
  EXPECT_EQ(warning("STAXSelfRate"), "");
  EXPECT_NE(warning("STAXSelfRat").find("did you mean 'STAXSelfRate'?"), std::string::npos);
}

TEST_F(Commands, ImportAddsAllRowsOrNone) {
  done({"init"});
  const std::string good = written("good.csv", "TBraCode,TBraName\nB1,a\nB2,b\n");
  const std::string bad = written("bad.csv", "TBraCode,NoColumn\nB3,a\n");
  const Outcome added = ask({"import", "KT7TBranch", good});
  EXPECT_EQ(added.out, "2 rows added to KT7TBranch.\n") << added.err;
  const Outcome refused = ask({"import", "KT7TBranch", bad});
  EXPECT_EQ(refused.exitCode, kFailed);
  EXPECT_TRUE(isOneLine(refused.err)) << refused.err;
  EXPECT_TRUE(says(refused.err, "NoColumn")) << refused.err;
  EXPECT_EQ(asked("SELECT COUNT(*) FROM KT7TBranch"), "2");
}

TEST_F(Commands, NeverShowAPassword) {
  const std::string secret = "s3cret;}word";
  const std::string file = secretFile("password.txt", secret + "\n");
  for (const std::string& given : {"PwdFile=" + file, std::string("Pwd={s3cret;}}word}")}) {
    const std::string name = given.starts_with("PwdFile") ? "a.db" : "b.db";
    const std::string db = database(name) + ";" + given;
    const std::string lost = database("none.db") + ";" + given;
    for (const Outcome& outcome :
         {kt7hr({"init", "--db", db}), kt7hr({"init", "--db", db}), kt7hr({"rpc", "--db", lost}),
          kt7hr({"rpc", "--db", "Driver=Nope;" + given}), kt7hr({"init", "--db", db, "--x"}),
          kt7hr({"call", "TrimSTAXBase", R"({"iBaseAmount":1})", "--db", lost})}) {
      EXPECT_EQ((outcome.out + outcome.err).find("s3cret"), std::string::npos)
          << outcome.out << outcome.err;
    }
    EXPECT_TRUE(std::filesystem::exists(path(name)));
  }
}

TEST_F(Commands, TakeThePasswordOutOfItsFile) {
  DatabaseOptions options;
  const auto taken = [&](const std::string& file) {
    options.database = "Driver=MySQL;pwdfile=" + file + ";Uid=u";
    return options.connectionString();
  };
  const std::string wanted = "Pwd={s3cret;}}word};Driver=MySQL;Uid=u";
  for (const char* content :
       {"s3cret;}word", "s3cret;}word\r\n", "\xEF\xBB\xBFs3cret;}word\nnot this"}) {
    EXPECT_EQ(taken(secretFile("password.txt", content)), wanted) << content;
    EXPECT_EQ(taken("{" + secretFile("pass;word.txt", content) + "}"), wanted);
  }
  options.database = "Driver=MySQL;Pwd=p";
  EXPECT_EQ(options.connectionString(), options.database);
  using std::filesystem::perms;
  std::filesystem::permissions(written("open.txt", "s3cret"),
                               perms::owner_all | perms::others_read);
  struct Case {
    std::string file;
    const char* words;
  };
  const Case refused[] = {
      {path("none.txt"), "cannot be read"},
      {secretFile("empty.txt", ""), "empty line"},
      {secretFile("blank.txt", "\ns3cret"), "empty line"},
      {secretFile("mark.txt", "\xEF\xBB\xBF\n"), "empty line"},
      {secretFile("wide.txt", "\xFF\xFEs"), "UTF-8"},
      {secretFile("zero.txt", std::string("s3c\0ret", 7)), "UTF-8"},
      {secretFile("long.txt", std::string(5000, 's')), "too long"},
      {"/dev/zero", "a device"},
      {path("."), "a folder"},
      {path("open.txt"), "chmod o-rwx"},
  };
  for (const Case& c : refused) {
    try {
      ADD_FAILURE() << c.file << " gave " << taken(c.file);
    } catch (const std::runtime_error& error) {
      EXPECT_NE(std::string(error.what()).find(c.words), std::string::npos) << error.what();
      EXPECT_EQ(std::string(error.what()).find("s3c"), std::string::npos) << error.what();
    }
  }
}

using Call = SampleCompany;

TEST_F(Call, PrintsOneResultOrFails) {
  const auto call = [](const std::string& operation, const std::string& params) {
    return kt7hr({"call", operation, params, "--db", database(), "--now", "2026-01-15"});
  };
  EXPECT_EQ(call("TrimSFUNDBase", R"({"iBaseAmount":0.1})").out, R"({"value":0.1,"out":{}})"
                                                                 "\n");
  const Outcome misspelt = call("GETDAYRATE", R"({"EmploieeCode":"E0001"})");
  EXPECT_EQ(misspelt.exitCode, kWrongUse);
  EXPECT_TRUE(says(misspelt.err, "did you mean 'EmployeeCode'?")) << misspelt.err;
  const Outcome failed = call("GETSectionHourRate", R"({"SectionCode":"x' y","UseOTRate":true})");
  EXPECT_EQ(failed.exitCode, kFailed);
  EXPECT_TRUE(isOneLine(failed.err)) << failed.err;
}

}  // namespace
}  // namespace kt7::cli
