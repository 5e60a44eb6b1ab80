#include <kt7/error.h>
#include <kt7/operations.h>
#include "command_fixture.h"
#include "fronts/calls/operation_calls.h"
#include "fronts/cli/rpc/session.h"

namespace kt7::cli {
namespace {

class Rpc : public SampleCompany {};

TEST_F(Rpc, AnswersMessagesAsTheProtocolSays) {
  struct Case {
    const char* line;
    const char* answer;  // without its message text; "" for no answer
  };
  const std::vector<Case> cases{
      {R"({"jsonrpc":"2.0","id":7,"method":"TrimSFUNDBase","params":{"iBaseAmount":12.5}})",
       R"({"jsonrpc":"2.0","id":7,"result":{"value":12.5,"out":{}}})"},
      {R"({"jsonrpc":"2.0","id":"a","method":"DataObj.OpenConnection"})",
       R"({"jsonrpc":"2.0","id":"a","result":{"value":null,"out":{}}})"},
      {R"({"jsonrpc":"2.0","id":null,"method":"DataObj.CloseConnection","params":{}})",
       R"({"jsonrpc":"2.0","id":null,"result":{"value":null,"out":{}}})"},
      {R"({"jsonrpc":"2.0","method":"TrimSFUNDBase","params":{"iBaseAmount":1}})", ""},
      {R"({"jsonrpc":"2.0","method":"NoSuch"})", ""},
      {"  ", ""},
      {R"({"jsonrpc":"2.0","id":1)", R"({"jsonrpc":"2.0","id":null,"error":{"code":-32700}})"},
      {"\"\xff\"", R"({"jsonrpc":"2.0","id":null,"error":{"code":-32700}})"},
      {"5", R"({"jsonrpc":"2.0","id":null,"error":{"code":-32600}})"},
      {R"({"jsonrpc":"1.0","id":2,"method":"X"})",
       R"({"jsonrpc":"2.0","id":2,"error":{"code":-32600}})"},
      {R"({"id":2,"method":"X"})", R"({"jsonrpc":"2.0","id":2,"error":{"code":-32600}})"},
      {R"({"jsonrpc":"2.0","id":{},"method":"DataObj.OpenConnection"})",
       R"({"jsonrpc":"2.0","id":null,"error":{"code":-32600}})"},
      {R"({"jsonrpc":"2.0","id":2,"method":5})",
       R"({"jsonrpc":"2.0","id":2,"error":{"code":-32600}})"},
      {R"({"jsonrpc":"2.0","id":2,"method":"trimsfundbase"})",
       R"({"jsonrpc":"2.0","id":2,"error":{"code":-32601}})"},
      {R"({"jsonrpc":"2.0","id":2,"method":"TrimSFUNDBase","params":[1]})",
       R"({"jsonrpc":"2.0","id":2,"error":{"code":-32602}})"},
      {R"({"jsonrpc":"2.0","id":2,"method":"TrimSFUNDBase","params":null})",
       R"({"jsonrpc":"2.0","id":2,"error":{"code":-32602}})"},
      {R"({"jsonrpc":"2.0","id":2,"method":"GETWageValue"})",
       R"({"jsonrpc":"2.0","id":2,"error":{"code":445,"data":{"kind":"not implemented"}}})"},
      {"[]", R"({"jsonrpc":"2.0","id":null,"error":{"code":-32600}})"},
      {R"([{"jsonrpc":"2.0","method":"NoSuch"}])", ""},
      {R"([5,{"jsonrpc":"2.0","id":3,"method":"TrimSFUNDBase","params":{"iBaseAmount":1}}])",
       R"([{"jsonrpc":"2.0","id":null,"error":{"code":-32600}},
           {"jsonrpc":"2.0","id":3,"result":{"value":1.0,"out":{}}}])"},
  };
  for (const Case& each : cases) {
    std::vector<Json> answers = rpc({each.line});
    if (*each.answer == '\0') {
      EXPECT_TRUE(answers.empty()) << each.line;
      continue;
    }
    ASSERT_EQ(answers.size(), 1u) << each.line;
    Json& answer = answers.front();
    for (Json* one :
         answer.is_array() ? std::vector{&answer[0], &answer[1]} : std::vector{&answer}) {
      if (one->contains("error")) EXPECT_GT((*one)["error"].erase("message"), 0u) << each.line;
    }
    EXPECT_EQ(answer, Json::parse(each.answer)) << each.line;
  }
}

std::string nested(int levels) {
  return std::string(static_cast<std::size_t>(levels), '[') +
         std::string(static_cast<std::size_t>(levels), ']');
}

TEST_F(Rpc, RefusesWhatItCannotTakeInAndGoesOn) {
  const std::string sound = request("TrimSFUNDBase", R"({"iBaseAmount":1})");
  std::string manyRequests = "[0";
  for (int i = 0; i < 10000; ++i) manyRequests += ",0";
  const std::vector<std::pair<std::string, const char*>> cases{
      {nested(60000), "nested deeper"},
      {request("TrimSFUNDBase", nested(60000)), "nested deeper"},
      {sound + std::string(1, '\0') + sound, "zero byte"},
      {std::string(std::size_t{1024} * 1024 + 1, ' '), "longer than 1048576 bytes"},
      {std::string(std::size_t{9} * 1024 * 1024, 'x'), "longer than 1048576 bytes"},
      {manyRequests + "]", "more than 10000 requests"},
      {request("TrimSFUNDBase", R"({"iBaseAmount":)" + nested(20) + "}"), "wants a number"},
  };
  for (const auto& [line, why] : cases) {
    const std::vector<Json> answers = rpc({line, sound});
    ASSERT_EQ(answers.size(), 2u) << why;
    const std::string told = answers[0].at("error").at("message");
    EXPECT_TRUE(says(told, why)) << told.substr(0, 200);
    EXPECT_EQ(answers[1].at("result").at("value"), 1.0);
  }
}

/// Input in pieces; reading goes wrong once behind the first.
class BrokenInput : public std::streambuf {
 public:
  BrokenInput(std::vector<std::string> pieces, std::function<void()> fail)
      : pieces_(std::move(pieces)), fail_(std::move(fail)) {}

 private:
  int_type underflow() override {
    if (at_ == 1 && !std::exchange(failed_, true)) fail_();
    if (at_ == pieces_.size()) return traits_type::eof();
    std::string& piece = pieces_[at_++];
    setg(piece.data(), piece.data(), piece.data() + piece.size());
    return traits_type::to_int_type(piece.front());
  }

  std::vector<std::string> pieces_;
  std::function<void()> fail_;
  std::size_t at_ = 0;
  bool failed_ = false;
};

TEST_F(Rpc, TakesNoFailureForTheEndOfItsInput) {
  const std::string sound = request("TrimSFUNDBase", R"({"iBaseAmount":1})") + "\n";
  const auto serve = [&](const std::function<void()>& fail) {
    BrokenInput buffer({sound + "{", "}\n" + sound}, fail);
    std::istream in(&buffer);
    return kt7hr({"rpc", "--db", database()}, in);
  };
  const Outcome scarce = serve([] { throw std::bad_alloc(); });
  EXPECT_EQ(scarce.exitCode, kDone) << scarce.err;
  EXPECT_TRUE(says(scarce.out, "not enough memory")) << scarce.out;
  EXPECT_EQ(std::count(scarce.out.begin(), scarce.out.end(), '\n'), 3) << scarce.out;
  const Outcome broken = serve([] { throw std::ios_base::failure("gone"); });
  EXPECT_EQ(broken.exitCode, kFailed);
  EXPECT_TRUE(says(broken.err, "could not be read to their end")) << broken.err;
}

TEST_F(Rpc, TheCallAfterALostConnectionIsAnswered) {
  if (test::engine().files) GTEST_SKIP() << "no connection to lose";
  Session session(SessionOptions{.connectionString = database()});
  const auto rate = [&] {
    return session.call("GetActiveRateTR",
                        {{"EmployeeCode", "E0001"}, {"TotalAmass", 1}, {"isActiveType", 1}});
  };
  const Json before = rate();
  database_->endConnections();
  EXPECT_THROW(rate(), Error);
  EXPECT_EQ(rate(), before);
  EXPECT_NO_THROW(session.call("DataObj.BeginTransaction", Json::object()));
  database_->endConnections();
  // The caller's own transaction is lost: that is said until the caller rolls back.
  EXPECT_THROW(rate(), Error);
  EXPECT_THROW(rate(), Error);
  EXPECT_THROW(session.call("DataObj.RollbackTransaction", Json::object()), Error);
  EXPECT_EQ(rate(), before);
}

TEST_F(Rpc, EveryOperationAsksForItsParametersByName) {
  const Json none = Json::object();
  for (const OperationCall& operation : operationCalls()) {
    const std::string name(operation.name);
    const Json error = rpc({request(name, R"({"NoSuchParameter":1})")}).at(0).value("error", none);
    const bool described = error.value("code", 0) == -32602;
    EXPECT_EQ(described ? "unknown parameter 'NoSuchParameter'" : "not implemented",
              described ? error.value("message", "") : error.value("data", none).value("kind", ""))
        << name;
  }
  std::apply(
      [&](const auto&... row) {
        const auto missing = [&](const auto& operation) {
          for (const Parameter& parameter : operation.parameters) {
            const std::string name(parameter.name);
            if (parameter.optional || name.ends_with("Obj")) continue;
            const Json error =
                rpc({request(std::string(operation.name), "{}")}).at(0).value("error", none);
            EXPECT_EQ(error.value("code", 0), -32602) << operation.name;
            EXPECT_EQ(error.value("message", ""), "missing parameter '" + name + "'");
            return;
          }
        };
        (missing(row), ...);
      },
      kOperations);
}

TEST_F(Rpc, ReadsEveryTypeExactlyOrNamesTheParameter) {
  struct Case {
    const char* property;
    const char* given;
    const char* kept;  // "" where the value is refused
  };
  const std::vector<Case> cases{
      {"DayPerMonth", "32767", "32767"},
      {"DayPerMonth", "-32768", "-32768"},
      {"DayPerMonth", "12.0", "12"},
      {"DayPerMonth", "32768", ""},
      {"DayPerMonth", "1.5", ""},
      {"DayPerMonth", "\"1\"", ""},
      {"DayPerMonth", "true", ""},
      {"DayPerMonth", "null", ""},
      {"DayPerMonth", "18446744073709551616", ""},
      {"Salary1", "0.1", "0.1"},
      {"Salary1", "7", "7.0"},
      {"Salary1", "\"7\"", ""},
      {"SalFactor", "1704.17", "1704.17"},
      {"SalFactor", "0.1", "0.1"},
      {"SalFactor", "1e39", ""},
      {"Code", "\"x' y\"", "\"x' y\""},
      {"Code", "\"สม\"", "\"สม\""},
      {"Code", "5", ""},
      {"LastSalary", "\"922337203685477.5807\"", "\"922337203685477.5807\""},
      {"LastSalary", "922337203685477", "\"922337203685477.0000\""},
      {"LastSalary", "-0.00015", "\"-0.0001\""},  // the double lies above -0.00015
      {"LastSalary", "\"-12.5\"", "\"-12.5000\""},
      {"LastSalary", "922337203685478", ""},
      {"LastSalary", "18446744073709551615", ""},
      {"LastSalary", "\"1e3\"", ""},
      {"LastSalary", "\"\"", ""},
      {"LastSalary", "false", ""},
      {"SignDate", "\"2026-02-28\"", "\"2026-02-28\""},
      {"SignDate", "\"2026-02-28T00:00:00\"", "\"2026-02-28\""},
      {"SignDate", "\"1899-12-29T18:30:05\"", "\"1899-12-29T18:30:05\""},
      {"SignDate", "\"2026-02-29\"", ""},
      {"SignDate", "\"2026-02-28 10:00:00\"", ""},
      {"SignDate", "\"28/2/2026\"", ""},
      {"SignDate", "\"0099-01-01\"", ""},
      {"SignDate", "46000", ""},
  };
  for (const Case& each : cases) {
    const std::string property = std::string(R"({"object":1,"property":")") + each.property + '"';
    const std::string set = property + R"(,"value":)" + each.given + "}";
    std::vector<Json> answers =
        rpc({request("EmployeeObject.new", "{}"), request("EmployeeObject.set", set),
             request("EmployeeObject.get", property + "}")});
    ASSERT_EQ(answers.size(), 3u) << set;
    EXPECT_EQ(answers[0]["result"]["value"], 1);
    if (*each.kept == '\0') {
      EXPECT_EQ(answers[1]["error"]["code"], -32602) << set;
      EXPECT_NE(answers[1]["error"]["message"].get<std::string>().find("'value'"),
                std::string::npos);
      continue;
    }
    EXPECT_EQ(jsonText(answers[1]["result"]), R"({"value":null,"out":{}})") << set;
    EXPECT_EQ(jsonText(answers[2]["result"]["value"]), each.kept) << set;
  }
}

TEST_F(Rpc, KeepsProfilesByNumberUntilTheyAreFreed) {
  const auto get = [](const char* object, const char* property) {
    return request("EmployeeObject.get",
                   R"({"object":)" + std::string(object) + R"(,"property":")" + property + "\"}");
  };
  struct Step {
    std::string line;
    const char* value;  // JSON; an error's code as "error N"
  };
  const std::vector<Step> steps{
      {request("EmployeeObject.new", "{}"), "1"},
      {request("EmployeeObject.new", "{}"), "2"},
      {request("EmployeeObject.SetTypeCode", R"({"object":2,"vData":"D2"})"), "null"},
      {get("2", "TypeCode"), "\"D2\""},
      {get("1", "TypeCode"), "\"1\""},
      {request("EmployeeObject.set", R"({"object":1,"property":"TypeCode","value":"M1"})"),
       "error -32602"},
      {request("EmployeeObject.set", R"({"object":1,"property":"HourPerDay","value":40000})"),
       "error 6"},
      {get("1", "typecode"), "error -32602"},
      {request("EmployeeObject.SETSALARY",
               R"({"object":1,"iSalary1":30000,"iSalary2":0,"QuantityCalc":30})"),
       "null"},
      {get("1", "Salary1"), "30000.0"},
      {request("EmployeeObject.CalcMethod", R"({"object":2})"), "\"D\""},
      {request("EmployeeObject.CalcMethodSalary", R"({"object":1})"), "\"M\""},
      {request("EmployeeObject.free", R"({"object":1})"), "null"},
      {get("1", "Salary1"), "error -32602"},
      {request("EmployeeObject.free", R"({"object":1})"), "error -32602"},
      {request("EmployeeObject.new", "{}"), "3"},
  };
  std::vector<std::string> lines;
  lines.reserve(steps.size());
  for (const Step& step : steps) lines.push_back(step.line);
  std::vector<Json> answers = rpc(lines);
  ASSERT_EQ(answers.size(), steps.size());
  for (std::size_t i = 0; i < steps.size(); ++i) {
    Json& answer = answers[i];
    EXPECT_EQ(answer.contains("error") ? "error " + jsonText(answer["error"]["code"])
                                       : jsonText(answer["result"]["value"]),
              steps[i].value)
        << steps[i].line;
  }
}

constexpr const char* kTaxParams =
    R"({"iTaxBase":"50000","iBonus":0,"SignDate":"2020-01-01","YearCalc":0,"Condition":0,
        "iMoreMonth":12,"Reduce":"60000","LastPTAX":0,"CutStudySup":0,"Donation":"500","CutWaive":0,
        "LastSalary":"50000","FixtoTen":false,"PayDate":"2026-01-31","LastSSO":"875"})";

std::string onOneLine(std::string text) {
  std::erase(text, '\n');
  return text;
}

TEST_F(Rpc, AnswersSinglesAndOutParametersAsPublished) {
  std::vector<Json> answers = rpc({request("CalcPTAX4", onOneLine(kTaxParams))});
  EXPECT_EQ(jsonText(answers.at(0)["result"]),
            R"({"value":1704.17,"out":{"iMoreMonth":12,"Reduce":"60000.0000",)"
            R"("CutStudySup":"0.0000","Donation":"0.0000","CutWaive":"0.0000","FixtoTen":false}})");
}

TEST_F(Rpc, RollsBackAfterAFailureOnlyOutsideTheCallersTransaction) {
  const std::string begin = request("DataObj.BeginTransaction", "{}");
  const std::string commit = request("DataObj.CommitTransaction", "{}");
  const std::string rollback = request("DataObj.RollbackTransaction", "{}");
  // The slip number's quote breaks a statement of the operation's own transaction.
  const std::string failing =
      request("SumAmass2",
              R"({"TEmpCode":"E0001","CheckGroup":1,"TAmyCode":"","TEPSNo":"x' y","Status":1})");
  struct Case {
    std::vector<std::string> lines;
    std::string outcome;  // one letter a line: done or error
  };
  const std::vector<Case> cases{
      {{begin, commit, begin, rollback}, "dddd"},
      {{commit}, "e"},
      {{failing, begin, rollback}, "edd"},
      {{begin, failing, commit, commit}, "dede"},
      {{begin, failing, begin, rollback, begin}, "deedd"},
      {{begin, request("NoSuch", "{}"), rollback}, "ded"},
  };
  for (const Case& each : cases) {
    std::string outcome;
    for (const Json& answer : rpc(each.lines)) outcome += answer.contains("error") ? 'e' : 'd';
    EXPECT_EQ(outcome, each.outcome) << each.lines.front();
  }
}

TEST_F(Rpc, SaysWhatADatabaseErrorWas) {
  const std::string question = R"({"SectionCode":"x' y","UseOTRate":false})";
  Json error = rpc({request("GETSectionHourRate", question)}).at(0)["error"];
  EXPECT_EQ(error["code"], -2147217900);
  EXPECT_EQ(error["data"]["kind"], "database");
  EXPECT_NE(error["data"]["statement"].get<std::string>().find("x' y"), std::string::npos);
  EXPECT_FALSE(error["data"].contains("trace"));
}

TEST_F(Rpc, ShowsEachStepOfACallInATrace) {
  std::vector<Json> answers =
      rpc({request("GETDAYRATE", R"({"EmployeeCode":"E0001"})"),
           request("GETSectionHourRate", R"({"SectionCode":"x' y","UseOTRate":false})"),
           request("TrimSTAXBase", R"({"iBaseAmount":1})"), request("TrimSFUNDBase", "{}")},
          {"--trace"});
  ASSERT_EQ(answers.size(), 4u);
  Json& lookup = answers[0]["result"]["trace"].at(0);
  EXPECT_EQ(lookup["at"], "lookup");
  EXPECT_EQ(lookup["keyValue"], "E0001");
  EXPECT_EQ(lookup["table"], "KT7Temployee");
  Json& failed = answers[1]["error"]["data"]["trace"];
  EXPECT_EQ(failed.at(0)["at"], "open");
  EXPECT_NE(failed.at(1)["sql"].get<std::string>().find("x' y"), std::string::npos);
  Json& settings = answers[2]["result"]["trace"];
  ASSERT_EQ(settings.size(), 2u);
  EXPECT_EQ(settings[0]["key"], "STAXMinRate");
  EXPECT_EQ(settings[1]["at"], "setting");
  EXPECT_EQ(answers[3]["error"]["data"]["trace"], Json::array());
}

TEST_F(Rpc, AnswersPickersFromTheLine) {
  const std::string pick = request("SelectEmployee", "{}");
  EXPECT_EQ(rpc({pick}, {"--pick", "E1,E2"}).at(0)["result"]["value"], "E1,E2");
  EXPECT_EQ(rpc({pick}, {"--pick", ""}).at(0)["result"]["value"], "");
  EXPECT_EQ(rpc({pick}).at(0)["result"]["value"], "");  // nobody sits at a line of requests
}

}  // namespace
}  // namespace kt7::cli
