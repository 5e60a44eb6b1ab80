#pragma once

#include <memory>
#include <span>

#include "fronts/com/database2/object_of.h"
#include "host/roles/host_data_tool.h"
#include "host/roles/host_setting_store.h"
#include "host/roles/host_utility_object.h"

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
