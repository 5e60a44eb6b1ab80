#pragma once

#include <memory>
#include <span>

#include <kt7/roles/utility_object.h>
#include "fronts/com/database2/object_of.h"
#include "roles/data_tool.h"
#include "roles/setting_store.h"

/// The reference host's UtilityObject, DataTool and SettingStore by the names of their contract.
namespace kt7::database2 {

using UtilityRole = std::unique_ptr<UtilityObject>;
using DataToolRole = std::unique_ptr<DataTool>;
using SettingStoreRole = std::unique_ptr<SettingStore>;

template <>
std::span<const MemberOf<UtilityRole>> membersOf<UtilityRole>();
template <>
std::span<const MemberOf<DataToolRole>> membersOf<DataToolRole>();
template <>
std::span<const MemberOf<SettingStoreRole>> membersOf<SettingStoreRole>();

}  // namespace kt7::database2
