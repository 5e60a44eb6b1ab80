#include <windows.h>

#include <array>

#include "fronts/com/hrlib/employee_object_class.h"
#include "fronts/com/hrlib/hr_object_class.h"
#include "fronts/com/module/entry_points.h"

namespace {

using namespace kt7::hrlib;
namespace automation = kt7::automation;

template <typename Class>
HRESULT create(IUnknown* outer, REFIID id, void** object) {
  return automation::createObject<Class>(outer, id, object);
}

constexpr std::array<automation::CreatableClass, 2> kClasses{
    {{kHRObjectId, &create<HRObjectClass>, HRObjectClass::kSource},
     {kEmployeeObjectId, &create<EmployeeObjectClass>, EmployeeObjectClass::kSource}}};

constexpr std::array<automation::RegisteredClass, 2> kRegisteredClasses{
    {{kHRObjectId, L"KT7HRLib.HRObject", L"KT7HRLib payroll and personnel rules"},
     {kEmployeeObjectId, L"KT7HRLib.EmployeeObject", L"KT7HRLib pay profile of an employee"}}};

automation::Registered registered() {
  return {kRegisteredClasses,
          automation::RegisteredTypeLibrary{kKT7HRLibId,
                                            kLibraryVersion,
                                            L"KT7HRLib: payroll and personnel rules",
                                            {{kInterface_HRObject, L"_HRObject"},
                                             {kInterface_EmployeeObject, L"_EmployeeObject"}}}};
}

}  // namespace

automation::Module automation::thisModule() {
  return {kClasses, &registered, &forgetTypeInformation};
}
