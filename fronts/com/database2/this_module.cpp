#include <objbase.h>
#include <windows.h>

#include <array>

#include "fronts/com/database2/application.h"
#include "fronts/com/database2/collaborators.h"
#include "fronts/com/database2/data_access.h"
#include "fronts/com/database2/payroll_object.h"
#include "fronts/com/module/entry_points.h"

namespace kt7::database2 {

namespace {

using automation::CreatableClass;
using automation::RegisteredClass;

template <typename Target>
HRESULT create(IUnknown* outer, REFIID id, void** object) {
  return automation::createObject<ObjectOf<Target>>(outer, id, object);
}

HRESULT createUtility(IUnknown* outer, REFIID id, void** object) {
  return automation::createObject<ObjectOf<UtilityRole>>(outer, id, object,
                                                         platform().createUtilityObject());
}

HRESULT createDataTool(IUnknown* outer, REFIID id, void** object) {
  return automation::createObject<ObjectOf<DataToolRole>>(outer, id, object,
                                                          platform().createDataTool());
}

HRESULT createSettingStore(IUnknown* outer, REFIID id, void** object) {
  return automation::createObject<ObjectOf<SettingStoreRole>>(outer, id, object,
                                                              platform().createSettingStore());
}

// Class ids never change: installed scripts and the registry know them.
constexpr std::array<RegisteredClass, 9> kRegistered{{
    {{0x67c6d4a6, 0xcd64, 0x48e0, {0xa6, 0xa2, 0xf0, 0x90, 0xe6, 0xb2, 0x16, 0x16}},
     L"KT7Database2.DataObj",
     L"KT7Database2 data object"},
    {{0xc0f0d1f9, 0xda55, 0x4877, {0x88, 0x1a, 0x52, 0xf8, 0x05, 0x55, 0x41, 0x1f}},
     L"KT7Database2.AppObj",
     L"KT7Database2 application"},
    {{0x92262f8d, 0x229f, 0x42b0, {0x9a, 0xd1, 0x59, 0x80, 0xd9, 0x0e, 0x59, 0x30}},
     L"KT7Database2.ClientObj",
     L"KT7Database2 client"},
    {{0xf221b1ae, 0xf17e, 0x4bc5, {0xb2, 0x56, 0x99, 0x8d, 0xc0, 0x9d, 0xb0, 0xce}},
     L"KT7Database2.UtilityObject",
     L"KT7Database2 utilities"},
    {{0xaa26e396, 0xd813, 0x440c, {0x97, 0x01, 0xff, 0x2c, 0x54, 0x8d, 0xaa, 0x70}},
     L"KT7Database2.DataTool",
     L"KT7Database2 lookups and pickers"},
    {{0xf17deb05, 0x9c13, 0x4689, {0x81, 0xa7, 0x9e, 0x28, 0xe8, 0xc3, 0x70, 0x80}},
     L"KT7Database2.SettingStore",
     L"KT7Database2 settings and rights"},
    {{0xfa1be9ec, 0xcac8, 0x4273, {0x9d, 0xed, 0x70, 0xcf, 0xee, 0x9a, 0x13, 0xb2}},
     L"KT7Database2.Connection",
     L"KT7Database2 connection"},
    {{0xb157afe3, 0x600a, 0x488e, {0x96, 0x23, 0x16, 0xdc, 0x93, 0xda, 0x02, 0xed}},
     L"KT7Database2.Recordset",
     L"KT7Database2 recordset"},
    {{0x5204f716, 0x79b7, 0x4015, {0xa0, 0x21, 0x91, 0x2e, 0x78, 0x1d, 0x4b, 0x35}},
     L"KT7Database2.Payroll",
     L"KT7Database2 company and pay run"},
}};

constexpr std::array<automation::Creation, kRegistered.size()> kCreations{
    create<DataObject>,       create<ApplicationObject>,
    create<ClientObject>,     createUtility,
    createDataTool,           createSettingStore,
    create<ConnectionObject>, create<RecordsetObject>,
    create<PayrollObject>};

template <std::size_t... I>
constexpr std::array<CreatableClass, sizeof...(I)> creatable(std::index_sequence<I...>) {
  return {{{kRegistered[I].id, kCreations[I], kSource}...}};
}

constexpr auto kClasses = creatable(std::make_index_sequence<kRegistered.size()>());

automation::Registered registered() { return {kRegistered, {}}; }

}  // namespace

}  // namespace kt7::database2

kt7::automation::Module kt7::automation::thisModule() {
  return {database2::kClasses, &database2::registered};
}
