#include "payroll/store/lease_store.h"

#include "base/text.h"
#include "payroll/ports/lease_length.h"
#include "payroll/ports/run_names.h"
#include "payroll/store/unit_of_work.h"
#include "support/engine_words.h"
#include "support/sql_text.h"

namespace kt7::payroll {

namespace {

constexpr const char* kColumns =
    "TRLeRun, TRLeFrom, TRLeTo, TRLeFirstNo, TRLeWorker, TRLeState, TRLeUntil FROM KT7TRunLease "
    "WHERE ";
constexpr int kPartsShown = 16;

std::string number(PartState state) { return std::to_string(static_cast<int>(state)); }

/// The column TRLeTo holds a part's last code and a head's fingerprint.
PartRow rowIn(ado::Recordset& row) {
  RunPart part{.name = textIn(row, "TRLeRun"),
               .afterCode = textIn(row, "TRLeFrom"),
               .sequenceBefore = wholeIn(row, "TRLeFirstNo")};
  (isPartName(part.name) ? part.lastCode : part.fingerprint) = textIn(row, "TRLeTo");
  return {.part = std::move(part),
          .worker = textIn(row, "TRLeWorker"),
          .state = static_cast<PartState>(wholeIn(row, "TRLeState")),
          .until = row.get("TRLeUntil").toDate()};
}

const std::string& lastColumn(const RunPart& part) {
  return isPartName(part.name) ? part.lastCode : part.fingerprint;
}

Date dateIn(const Value& value) {
  Date date;
  if (Date::tryFromIsoText(value.joinedText(), date)) return date;
  return value.toDate();
}

}  // namespace

Date LeaseStore::now() {
  const EngineWords& words = wordsOf(engineOf(dataObj_.DatabaseType()));
  auto rows = records_.open(std::string("SELECT ") + words.utcNow + " AS ServerNow");
  return dateIn(rows->get("ServerNow"));
}

std::string LeaseStore::moment(Date date) const { return dateLiteral(date.isoDateTimeText()); }

std::string LeaseStore::rowOf(const RunPart& part) const {
  return "TRLeRun=" + records_.quoted(part.name) +
         " AND TRLeFrom=" + records_.quoted(part.afterCode);
}

std::string LeaseStore::named(const std::pair<std::string, std::string>& names) const {
  return "TRLeRun>=" + records_.quoted(names.first) + " AND TRLeRun<" +
         records_.quoted(names.second);
}

std::string LeaseStore::partsOf(const std::string& run) const { return named(partNames(run)); }

std::optional<PartRow> LeaseStore::head(const std::string& run) {
  auto rows = records_.open("SELECT " + std::string(kColumns) + rowOf({.name = run}));
  if (rows->Eof()) return std::nullopt;
  return rowIn(*rows);
}

std::vector<PartRow> LeaseStore::heads(const Month& month) {
  std::vector<PartRow> heads;
  auto rows = records_.open("SELECT " + std::string(kColumns) + named(runNames(month)) +
                            " AND TRLeFrom='' ORDER BY TRLeRun");
  for (; !rows->Eof(); rows->MoveNext()) {
    PartRow row = rowIn(*rows);
    if (!isPartName(row.part.name)) heads.push_back(std::move(row));
  }
  return heads;
}

void LeaseStore::insert(const PartRow& row) {
  records_.execute(
      "INSERT INTO KT7TRunLease (TRLeRun, TRLeFrom, TRLeTo, TRLeFirstNo, TRLeWorker, TRLeState, "
      "TRLeUntil) VALUES (" +
      records_.quoted(row.part.name) + ", " + records_.quoted(row.part.afterCode) + ", " +
      records_.quoted(lastColumn(row.part)) + ", " + std::to_string(row.part.sequenceBefore) +
      ", " + records_.quoted(row.worker) + ", " + number(row.state) + ", " + moment(row.until) +
      ")");
}

void LeaseStore::makeHead(const RunPart& head, const std::string& worker, Date until) {
  UnitOfWork unit(dataObj_);
  insert({head, worker, PartState::Taken, until});
  unit.commit();
}

bool LeaseStore::publishParts(const RunPart& head, const std::string& worker,
                              const std::vector<RunPart>& parts,
                              const std::function<Date()>& until) {
  UnitOfWork unit(dataObj_);
  const Date begun = until();
  if (!update(head, ownedBy(worker), worker, PartState::Done, begun)) return false;
  records_.execute("DELETE FROM KT7TRunLease WHERE " + partsOf(head.name));
  for (const RunPart& part : parts) insert({part, "", PartState::Open, begun});
  records_.execute("UPDATE KT7TRunLease SET TRLeUntil=" + moment(until()) + " WHERE " +
                   partsOf(head.name));
  unit.commit();
  return true;
}

std::vector<PartRow> LeaseStore::freeParts(const std::string& part, const std::string& worker,
                                           Date now) {
  return read("SELECT TOP " + std::to_string(kPartsShown) + " " + kColumns +
              "TRLeRun=" + records_.quoted(part) + " AND (TRLeState=" + number(PartState::Open) +
              " OR (TRLeState=" + number(PartState::Taken) + " AND (TRLeUntil<" + moment(now) +
              " OR TRLeUntil>=" + moment(latestUntil(now)) +
              " OR TRLeWorker=" + records_.quoted(worker) + "))) ORDER BY TRLeFrom");
}

std::vector<PartRow> LeaseStore::parts(const std::string& run) {
  return read("SELECT " + std::string(kColumns) + partsOf(run) + " ORDER BY TRLeRun, TRLeFrom");
}

std::vector<PartRow> LeaseStore::read(const std::string& query) {
  std::vector<PartRow> parts;
  auto rows = records_.open(query);
  for (; !rows->Eof(); rows->MoveNext()) parts.push_back(rowIn(*rows));
  return parts;
}

int LeaseStore::count(const std::string& where) {
  auto rows = records_.open("SELECT COUNT(*) AS Parts FROM KT7TRunLease WHERE " + where +
                            " AND TRLeState<>" + number(PartState::Done));
  return wholeIn(*rows, "Parts");
}

int LeaseStore::countUndone(const std::string& part) {
  return count("TRLeRun=" + records_.quoted(part));
}

int LeaseStore::countAllUndone(const std::string& run) { return count(partsOf(run)); }

std::optional<PartRow> LeaseStore::latestPart(const std::string& run, Date now) {
  auto rows =
      records_.open("SELECT TOP 1 " + std::string(kColumns) + partsOf(run) + " AND TRLeUntil<" +
                    moment(latestUntil(now)) + " ORDER BY TRLeUntil DESC");
  if (rows->Eof()) return std::nullopt;
  return rowIn(*rows);
}

bool LeaseStore::take(const PartRow& row, const std::string& worker, Date until) {
  UnitOfWork unit(dataObj_);
  const std::string asRead = " AND TRLeWorker=" + records_.quoted(row.worker) +
                             " AND TRLeState=" + number(row.state) +
                             " AND TRLeUntil=" + moment(row.until);
  if (!update(row.part, asRead, worker, PartState::Taken, until)) return false;
  unit.commit();
  return true;
}

bool LeaseStore::mark(const RunPart& part, const std::string& worker, PartState state, Date until) {
  UnitOfWork unit(dataObj_);
  if (!update(part, ownedBy(worker), worker, state, until)) return false;
  unit.commit();
  return true;
}

bool LeaseStore::prolongInTransaction(const RunPart& part, const std::string& worker, Date until) {
  return update(part, ownedBy(worker) + " AND TRLeState=" + number(PartState::Taken), worker,
                PartState::Taken, until);
}

std::string LeaseStore::ownedBy(const std::string& worker) const {
  return " AND TRLeWorker=" + records_.quoted(worker);
}

/// Whether the row is now the worker's. On a cluster only the commit tells for good: of two nodes
/// that changed the row at a time one fails there.
bool LeaseStore::update(const RunPart& part, const std::string& condition,
                        const std::string& worker, PartState state, Date until) {
  records_.execute("UPDATE KT7TRunLease SET TRLeWorker=" + records_.quoted(worker) +
                   ", TRLeState=" + number(state) +
                   ", TRLeTo=" + records_.quoted(lastColumn(part)) +
                   ", TRLeUntil=" + moment(until) + " WHERE " + rowOf(part) + condition);
  return isHeldBy(part, worker);
}

bool LeaseStore::isHeldBy(const RunPart& part, const std::string& worker) {
  auto rows = records_.open("SELECT TRLeWorker FROM KT7TRunLease WHERE " + rowOf(part));
  return !rows->Eof() && textIn(*rows, "TRLeWorker") == worker;
}

}  // namespace kt7::payroll
