#include "collab/own_transaction.h"

#include <exception>

namespace kt7 {

namespace {

constexpr const char* kCannotSaveNow =
    "ไม่สามารถบันทึกข้อมูลได้ในขณะนี้ โปรดจดจำ หรือบันทึกข้อความต่อไปนี้ หรือ Print Screen "
    "เพื่อแจ้งให้กับผู้ดูแลระบบ - ";

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
    connection->RollbackTrans();
    connection->Close();
    platform.showMessage(kCannotSaveNow + std::string(error.what()));
  }
}

}  // namespace kt7
