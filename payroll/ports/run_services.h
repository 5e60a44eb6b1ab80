#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <kt7/contract/data_obj.h>
#include <kt7/contract/setting_store.h>
#include <kt7/contract/utility_object.h>
#include <kt7/employee_interface.h>
#include <kt7/hr_interface.h>
#include "payroll/ports/company.h"
#include "payroll/ports/leases.h"
#include "payroll/ports/slip_book.h"

namespace kt7::payroll {

/// What a run works with. All of it outlives the run.
struct RunServices {
  _HRObject& hr;
  DataObj& dataObj;
  UtilityObject& utility;
  SettingStore& settings;
  Company& company;
  SlipBook& book;
  RunLeases& leases;
  std::function<std::unique_ptr<_EmployeeObject>()> newProfile;
  std::function<Date()> now;
  /// Runs `work` and answers the messages that it would have shown.
  std::function<std::vector<std::string>(const std::function<void()>& work)> messagesOf;
  std::function<void(const std::string& text)> showMessage;
  /// Replaces a lost connection by a new one.
  std::function<void()> reconnect;
  /// Waits until the connection's node has applied what other nodes of a cluster committed; nothing
  /// on a single server.
  std::function<void()> catchUp = [] {};
};

/// The services of one worker, with their connections; used by one thread at a time.
class Worker {
 public:
  virtual ~Worker() = default;
  virtual RunServices& services() = 0;
};

/// Keeps the data object's connection open for as long as it lives.
class OpenData {
 public:
  explicit OpenData(DataObj& dataObj) : dataObj_(dataObj) { dataObj_.OpenConnection(); }
  OpenData(const OpenData&) = delete;
  OpenData& operator=(const OpenData&) = delete;
  ~OpenData() {
    try {
      dataObj_.CloseConnection();
    } catch (const std::exception&) {
      // What was paid has been committed; a connection that does not close changes nothing.
    }
  }

 private:
  DataObj& dataObj_;
};

using NewWorker = std::function<std::unique_ptr<Worker>()>;

}  // namespace kt7::payroll
