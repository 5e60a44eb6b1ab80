#include <fstream>
#include <memory>
#include <set>

#include "checks.h"
#include "client.h"
#include "fronts/calls/operation_calls.h"
#include "fronts/calls/protocol_error.h"
#include "fronts/com/adapters/host_objects.h"
#include "fronts/com/automation/text.h"
#include "fronts/com/hrlib/self_calls.h"

namespace kt7::client {

namespace {

using automation::toWide;
using cli::Json;

/// The host's objects and the component, played like a session of the command: every call goes
/// through the table of functions.
class Session {
 public:
  explicit Session(const std::string& connectionString) {
    data_.put(L"ConnectionString", connectionString);
    data_.run(L"OpenConnection");
    app_.put(L"AppDatabaseConnectionString", connectionString);
    client_.put(L"CurrentUserID", 7);
    client_.put(L"CurrentBranchCode", "BR01");
    client_.put(L"PickerAnswer", "E0001,E0002");
  }

  /// The answer as the command would give it: "result", or "error" with its number and text.
  Json answer(const Json& call) {
    const auto failed = [](int number, const char* text) {
      return Json{{"error", Json{{"code", number}, {"message", text}}}};
    };
    try {
      return Json{{"result", perform(call["method"], call["params"])}};
    } catch (const Error& error) {
      return failed(error.number(), error.what());
    } catch (const cli::ProtocolError& error) {
      return failed(error.code(), error.what());
    }
  }

 private:
  Json perform(const std::string& method, const Json& given) {
    if (method.starts_with("EmployeeObject.")) {
      return Json{{"value", performProfile(method.substr(15), given)}, {"out", Json::object()}};
    }
    for (const UndescribedOperation& reserved : kUndescribedOperations) {
      // Reserved operations have no slot; the call by name refuses.
      if (reserved.name == method)
        LateObject(component_.Get(), "HRObject").call(toWide(method).c_str());
    }
    Json params = Json::object();
    for (const auto& [name, value] : given.items()) {
      if (!value.is_null()) params[name] = value;
    }
    adapters::LateDataObj data(data_.get());
    adapters::LateAppObj app(app_.get());
    adapters::LateClientObj client(client_.get());
    hrlib::SelfCalls operations(component_.Get());
    return cli::findOperation(method)->call(params, {operations, data, app, client});
  }

  Json performProfile(const std::string& method, const Json& given) {
    if (method == "new") profile_ = create<::_EmployeeObject>(__uuidof(EmployeeObject));
    if (method == "new") return 1;
    hrlib::ProfileSelfCalls profile(profile_.Get());
    Json value;
    if (method == "free") {
      profile_.Reset();
    } else if (method == "SetTypeCode") {
      adapters::LateDataObj data(data_.get());
      profile.SetTypeCode(given["vData"], data);
    } else if (method == "SETSALARY") {
      profile.SETSALARY(given["iSalary1"], given["iSalary2"], given["QuantityCalc"]);
    } else if (method == "CalcMethod") {
      value = profile.CalcMethod();
    } else if (method == "CalcMethodSalary") {
      value = profile.CalcMethodSalary();
    } else {
      const auto use = [&]<typename T>(const ProfileProperty<T>& property) {
        if (property.name != given["property"]) return;
        if (method == "get") value = cli::toJson((profile.*property.get)());
        if (method == "set") (profile.*property.set)(cli::fromJson<T>(given["value"], "value"));
      };
      std::apply([&](const auto&... property) { (use(property), ...); }, kProfileProperties);
    }
    return value;
  }

  LateObject data_ = automation::createByProgId(L"KT7Database2.DataObj");
  LateObject app_ = automation::createByProgId(L"KT7Database2.AppObj");
  LateObject client_ = automation::createByProgId(L"KT7Database2.ClientObj");
  ComPtr<IDispatch> component_ = create<IDispatch>(__uuidof(HRObject));
  ComPtr<::_EmployeeObject> profile_;
};

/// The parts of a native answer that a component can give too.
Json comparable(const Json& answer) {
  if (!answer.contains("error")) return Json{{"result", answer["result"]}};
  const Json& error = answer["error"];
  return Json{{"error", Json{{"code", error["code"]}, {"message", error["message"]}}}};
}

/// No operation and no method may be missing in the list of calls.
void testCoverage(const std::set<std::string>& called) {
  std::string missing;
  const auto want = [&](const std::string& name) {
    if (!called.contains(name)) missing += " " + name;
  };
  for (const cli::OperationCall& operation : cli::operationCalls()) {
    want(std::string(operation.name));
  }
  std::apply(
      [&](const auto&... method) { (want("EmployeeObject." + std::string(method.name)), ...); },
      kProfileMethods);
  checkEqual(missing, "", "operations that no call in the list makes");
}

}  // namespace

int testAnswers(const std::string& callsFile, const std::string& answersFile,
                const std::string& connectionString) {
  std::ifstream calls(callsFile);
  std::ifstream answers(answersFile);
  Session session(connectionString);
  std::string call;
  std::string answer;
  int count = 0;
  std::set<std::string> called;
  while (std::getline(calls, call) && std::getline(answers, answer)) {
    const Json expected = comparable(Json::parse(answer));
    checkEqual(cli::jsonText(session.answer(Json::parse(call))), cli::jsonText(expected), call);
    called.insert(Json::parse(call)["method"]);
    ++count;
  }
  check(count > 0 && !std::getline(calls, call) && !std::getline(answers, answer),
        "as many answers as calls");
  testCoverage(called);
  return count + 2;
}

}  // namespace kt7::client
