#pragma once

#include <memory>

#include <kt7/contract/platform.h>
#include <kt7/export.h>

namespace kt7 {

/// The three collaborators of an object, each made when it is first asked for and kept. The pieces
/// of an operation take this rather than a collaborator, so that none is made before its use. A
/// collaborator that cannot be made is an error of kind collaborator, and is tried again next time.
class KT7_API Collaborators {
 public:
  explicit Collaborators(Platform& platform) : platform_(platform) {}

  UtilityObject& utility();
  DataTool& dataTool();
  SettingStore& settings();

 private:
  Platform& platform_;
  std::unique_ptr<UtilityObject> utility_;
  std::unique_ptr<DataTool> dataTool_;
  std::unique_ptr<SettingStore> settings_;
};

}  // namespace kt7
