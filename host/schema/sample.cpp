#include <sstream>
#include <string>

#include "host/schema/import.h"
#include "host/schema/sample_files.h"
#include "host/schema/schema.h"
#include "host/schema/transaction.h"

namespace kt7::schema {

void loadSampleTR(ado::Connection& connection) {
  for (const SampleFile& file : sampleFiles()) {
    std::istringstream csv{std::string(file.csv)};
    importTableTR(connection, file.table, csv);
  }
}

void loadSample(ado::Connection& connection) {
  Transaction transaction(connection);
  loadSampleTR(connection);
  transaction.commit();
}

}  // namespace kt7::schema
