#pragma once

#include <kt7/hr_object.h>
#include "fronts/com/adapters/windows_platform.h"
#include "fronts/com/hrlib/calls.h"
#include "fronts/com/hrlib/dual_object.h"
#include "fronts/com/hrlib/self_calls.h"

namespace kt7::hrlib {

/// The creatable class HRObject. Its slots hand over to the library's own HRObject, whose calls to
/// itself come back through the slots.
class HRObjectClass : public DualObject<HRObjectClass, ::_HRObject> {
 public:
  static constexpr const char* kSource = "KT7HRLib.HRObject";

  explicit HRObjectClass(IUnknown* outer)
      : DualObject(outer), selfCalls_(controlling(), this), object_(platform_, &selfCalls_) {}

  static std::span<const NamedCall<HRObjectClass>> namedCalls();
  kt7::HRObject& object() { return object_; }

#include "operation_slots.inc"

 private:
  template <std::size_t Row, typename Out, typename... Given>
  HRESULT operation(Out result, Given... given) {
    using Operation = std::remove_cvref_t<decltype(std::get<Row>(kOperations))>;
    return callEarly<typename Operation::Result>(
        static_cast<typename Operation::Arguments*>(nullptr), kSource, __uuidof(::_HRObject),
        static_cast<kt7::_HRObject&>(object_), Operation::kMember, result, given...);
  }

  adapters::WindowsPlatform platform_;
  SelfCalls selfCalls_;
  kt7::HRObject object_;
};

}  // namespace kt7::hrlib
