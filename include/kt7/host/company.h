#pragma once

#include <string>

#include <kt7/employee_object.h>
#include <kt7/export.h>
#include <kt7/host/data_obj.h>
#include <kt7/host/platform.h>
#include <kt7/hr_object.h>

namespace kt7::host {

/// A company's database with what a call of an operation needs, in one object for one thread:
///   kt7::host::Company company("Driver=SQLite;Database=company.db");
///   company.hr().GETHOURRATE("E0001", company.data());
class KT7_API Company {
 public:
  /// A connection error for what is no connection string of a known driver. The database is opened
  /// by the first call that needs it.
  explicit Company(const std::string& connectionString) : data_(connectionString), hr_(platform_) {}
  Company(const Company&) = delete;
  Company& operator=(const Company&) = delete;

  HRObject& hr() { return hr_; }
  HostDataObj& data() { return data_; }
  HostPlatform& platform() { return platform_; }
  /// An empty pay profile; it must not outlive the company.
  EmployeeObject newProfile() { return EmployeeObject(platform_); }

 private:
  HostPlatform platform_;
  HostDataObj data_;
  HRObject hr_;
};

}  // namespace kt7::host
