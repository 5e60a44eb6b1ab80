#pragma once

#include <filesystem>
#include <string>

namespace kt7::bench {

/// The sample company in a database of its own, gone at the end.
class SampleCompany {
 public:
  /// On the server of a connection string without "Database="; in a file where it names SQLite.
  explicit SampleCompany(std::string server = "Driver=SQLite");
  ~SampleCompany();
  SampleCompany(const SampleCompany&) = delete;
  SampleCompany& operator=(const SampleCompany&) = delete;

  const std::string& server() const { return server_; }
  /// The name of the database; of SQLite its file.
  const std::string& database() const { return database_; }
  std::string connectionString() const { return server_ + ";Database=" + database_; }

  /// More employees: E00001 and so on, each with every column filled.
  void addEmployees(int count) const;

 private:
  std::string server_;
  std::filesystem::path folder_;
  std::string database_;
};

/// The code of the n-th employee that addEmployees makes.
std::string employeeCode(int number);

}  // namespace kt7::bench
