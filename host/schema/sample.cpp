#include <sstream>
#include <string>

#include "host/schema/import.h"
#include "host/schema/sample_files.h"
#include "host/schema/schema.h"
#include "host/schema/transaction.h"

namespace kt7::schema {

void loadSample(ado::Connection& connection) {
  Transaction transaction(connection);
  for (const SampleFile& file : sampleFiles()) {
    std::istringstream csv{std::string(file.csv)};
    importTableTR(connection, file.table, csv);
  }
  transaction.commit();
}

}  // namespace kt7::schema
