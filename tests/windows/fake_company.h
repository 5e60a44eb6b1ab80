#pragma once

#include "fake_object.h"

namespace kt7::client {

/// A host's objects over tables of one row, in which every column holds the same number. Every
/// setting is 0; nothing is rounded; statements are taken and forgotten.
class FakeCompany {
 public:
  explicit FakeCompany(int number);
  FakeCompany(const FakeCompany&) = delete;
  FakeCompany& operator=(const FakeCompany&) = delete;

  /// To pass as a data object by reference.
  IDispatch** dataObj() { return dataObj_.GetAddressOf(); }

  FakeKind data, connection, rows, utility, tool, settings;

 private:
  FakeKind field_, fields_;
  bool atEnd_ = false;
  ComPtr<IDispatch> dataObj_ = newFake(data);
  const FakeRole roles_[5]{{L"Connection", connection},
                           {L"Recordset", rows},
                           {L"UtilityObject", utility},
                           {L"DataTool", tool},
                           {L"SettingStore", settings}};
};

}  // namespace kt7::client
