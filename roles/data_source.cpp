#include <kt7/roles/data_source.h>

namespace kt7::roles {

void DataSource::begin() {
  // At once the lock to write: a transaction of SQLite that only later wants it may find its
  // snapshot outdated, and no waiting helps then.
  execute(engine() == Engine::Sqlite ? "BEGIN IMMEDIATE" : "BEGIN");
}

void DataSource::commit() { execute("COMMIT"); }
void DataSource::rollback() { execute("ROLLBACK"); }

}  // namespace kt7::roles
