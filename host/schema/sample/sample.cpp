#include <sstream>
#include <string>

#include "host/schema/engine/transaction.h"
#include "host/schema/sample/sample_files.h"
#include "host/schema/state/schema.h"
#include "host/schema/transfer/import.h"

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
