#include "support/own_transaction.h"

#include <exception>
#include <typeinfo>

#include <kt7/error.h>

namespace kt7 {

namespace {

constexpr const char* kCannotSaveNow =
    "ไม่สามารถบันทึกข้อมูลได้ในขณะนี้ โปรดจดจำ หรือบันทึกข้อความต่อไปนี้ หรือ Print Screen "
    "เพื่อแจ้งให้กับผู้ดูแลระบบ - ";

/// Where there is nothing to roll back that is the error, with what led to it for people to read.
/// An error of a host's own kind may carry more than this one knows: it travels as it is.
void rollBack(ado::Connection& connection, const std::string& cause) {
  try {
    connection.RollbackTrans();
  } catch (const Error& error) {
    if (typeid(error) != typeid(Error)) throw;
    throw Error(error.kind(), error.number(), std::string(error.what()) + " (" + cause + ")",
                error.cause());
  }
}

}  // namespace

void inOwnTransaction(Platform& platform, DataObj& dataObj,
                      const std::function<void(ado::Connection&)>& work) {
  const std::unique_ptr<ado::Connection> connection = platform.createConnection();
  try {
    connection->CursorLocation(ado::kClientSide);
    connection->Open(dataObj.ConnectionString(), "", "", ado::kUnspecified);
    connection->BeginTrans();
    work(*connection);
    connection->CommitTrans();
    connection->Close();
  } catch (const std::exception& error) {
    rollBack(*connection, error.what());
    connection->Close();
    platform.showMessage(kCannotSaveNow + std::string(error.what()));
  }
}

}  // namespace kt7
