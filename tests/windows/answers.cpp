#include "answers.h"

#include <fstream>
#include <memory>
#include <set>

#include <kt7/profile_table.h>
#include "checks.h"
#include "fronts/calls/operation_calls.h"
#include "fronts/calls/protocol_error.h"
#include "fronts/com/adapters/host_objects.h"
#include "fronts/com/automation/status.h"
#include "fronts/com/automation/text.h"

namespace kt7::client {

namespace {

using cli::Json;

constexpr int kUser = 7;
constexpr const char* kBranch = "BR01";
constexpr const char* kPicked = "E0001,E0002";

template <typename T>
Variant argument(const Json& value) {
  return cli::fromJson<T>(value, "value");
}

/// The property's value as its type, for what a script or a slot answers.
template <typename Action>
void withType(const std::string& name, Action action) {
  const auto tried = [&](const auto& property) {
    using Type = typename std::remove_cvref_t<decltype(property)>::Type;
    if (property.name == name) action(static_cast<std::type_identity<Type>*>(nullptr));
  };
  std::apply([&](const auto&... property) { (tried(property), ...); }, kProfileProperties);
}

/// The host's objects and the component, played like a session of the command.
class Session {
 public:
  Session(Binding binding, const std::string& connectionString)
      : binding_(binding),
        data_(automation::createByProgId(L"KT7Database2.DataObj")),
        app_(automation::createByProgId(L"KT7Database2.AppObj")),
        client_(automation::createByProgId(L"KT7Database2.ClientObj")),
        component_(create<IDispatch>(__uuidof(HRObject))) {
    data_.put(L"ConnectionString", connectionString);
    data_.run(L"OpenConnection");
    app_.put(L"AppDatabaseConnectionString", connectionString);
    client_.put(L"CurrentUserID", kUser);
    client_.put(L"CurrentBranchCode", kBranch);
    client_.put(L"PickerAnswer", kPicked);
    if (binding == Binding::Early) {
      operations_ = std::make_unique<hrlib::SelfCalls>(component_.Get());
    } else {
      operations_ = std::make_unique<CallsByName>(component_);
    }
  }

  /// The answer as the command would give it: "result", or "error" with its number and text.
  Json answer(const Json& call) {
    try {
      return Json{{"result", perform(call["method"], call["params"])}};
    } catch (const Error& error) {
      return Json{{"error", Json{{"code", error.number()}, {"message", error.what()}}}};
    } catch (const cli::ProtocolError& error) {
      return Json{{"error", Json{{"code", error.code()}, {"message", error.what()}}}};
    }
  }

 private:
  Json perform(const std::string& method, const Json& given) {
    if (method.starts_with("DataObj.")) {
      data_.run(automation::toWide(method.substr(8)).c_str());
      return Json{{"value", nullptr}, {"out", Json::object()}};
    }
    if (method.starts_with("EmployeeObject.")) {
      return Json{{"value", performProfile(method.substr(15), given)}, {"out", Json::object()}};
    }
    if (isReserved(method)) {
      LateObject(component_.Get(), "HRObject").call(automation::toWide(method).c_str());
    }
    Json params = Json::object();
    for (const auto& [name, value] : given.items()) {
      if (!value.is_null()) params[name] = value;
    }
    adapters::LateDataObj data(data_.get());
    adapters::LateAppObj app(app_.get());
    adapters::LateClientObj client(client_.get());
    return cli::findOperation(method)->call(params, {*operations_, data, app, client});
  }

  static bool isReserved(const std::string& method) {
    for (const UndescribedOperation& operation : kUndescribedOperations) {
      if (operation.name == method) return true;
    }
    return false;
  }

  Json performProfile(const std::string& method, const Json& given) {
    if (method == "new") {
      profile_ = std::make_unique<ProfileBinding>(
          binding_, create<::_EmployeeObject>(__uuidof(EmployeeObject)));
      return 1;
    }
    if (method == "free") {
      profile_.reset();
      return nullptr;
    }
    Json value;
    if (method == "get") {
      const std::string property = given["property"];
      const Variant got = profile_->get(property);
      withType(property, [&]<typename T>(std::type_identity<T>*) {
        value = cli::toJson(automation::fromVariant<T>(got.raw()));
      });
    } else if (method == "set") {
      const std::string property = given["property"];
      withType(property, [&]<typename T>(std::type_identity<T>*) {
        profile_->put(property, argument<T>(given["value"]));
      });
    } else if (method == "SetTypeCode") {
      const Variant code = argument<std::string>(given["vData"]);
      const Variant data(data_.get());
      profile_->call(method, {code.raw(), data.raw()});
    } else if (method == "SETSALARY") {
      const Variant first = argument<double>(given["iSalary1"]);
      const Variant second = argument<double>(given["iSalary2"]);
      const Variant quantity = argument<double>(given["QuantityCalc"]);
      profile_->call(method, {first.raw(), second.raw(), quantity.raw()});
    } else {
      value = automation::fromVariant<std::string>(profile_->call(method, {}).raw());
    }
    return value;
  }

  Binding binding_;
  LateObject data_;
  LateObject app_;
  LateObject client_;
  ComPtr<IDispatch> component_;
  std::unique_ptr<kt7::_HRObject> operations_;
  std::unique_ptr<ProfileBinding> profile_;
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

int testAnswers(Binding binding, const std::string& callsFile, const std::string& answersFile,
                const std::string& connectionString) {
  std::ifstream calls(callsFile);
  std::ifstream answers(answersFile);
  Session session(binding, connectionString);
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
