#include "fake_company.h"

namespace kt7::client {

FakeCompany::FakeCompany(int number) {
  data.members[L"ConnectionString"] = data.members[L"DatabaseType"] = answers("");
  for (const wchar_t* member : {L"CursorLocation", L"Open", L"Close", L"Execute", L"BeginTrans",
                                L"CommitTrans", L"RollbackTrans"}) {
    connection.members[member] = does();
  }
  field_.members[L"Value"] = answers(number);
  fields_.members[L"Item"] = [this](FakeCall&) { return Variant(newFake(field_).Get()); };
  rows.members[L"Fields"] = [this](FakeCall&) { return Variant(newFake(fields_).Get()); };
  rows.members[L"EOF"] = [this](FakeCall&) { return Variant(atEnd_); };
  rows.members[L"Open"] = rows.members[L"MoveNext"] = [this](FakeCall& call) {
    atEnd_ = !call.arguments.has(0);  // Open is given a source
    return Variant();
  };
  rows.members[L"Close"] = does();
  for (const wchar_t* member : {L"RoundToDigits", L"RoundValue", L"TextToNumber"}) {
    utility.members[member] = answersFirstArgument();
  }
  for (const wchar_t* member : {L"SqlDateText", L"SqlShortDateText", L"SqlDateTimeText"}) {
    utility.members[member] = answers("2026-01-31");
  }
  tool.members[L"PrepareSql"] = answersFirstArgument();
  settings.members[L"GetNumberSetting"] = answers(0.0);
}

}  // namespace kt7::client
