#pragma once

#include <dispex.h>
#include <windows.h>
#include <wrl/client.h>

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "fronts/com/automation/variant.h"

namespace kt7::automation {

/// Remembers the dispatch ids of members by name, for objects of one class.
class MemberIds {
 public:
  struct Id {
    DISPID id = DISPID_UNKNOWN;
    bool extended = false;  // known to IDispatchEx alone
  };
  /// Refuses a member that the object does not know (440).
  Id of(IDispatch& object, const wchar_t* member, std::string_view objectName);

 private:
  struct Row {
    std::wstring member;
    Id id;
  };
  std::vector<Row> rows_;
};

/// An object of the host, called by the names of its members. A failure of the callee is raised as
/// HostError with the callee's number, text and source.
class LateObject {
 public:
  LateObject() = default;
  /// Counts the object; `name` says in errors what was called. Null is an object that was not set:
  /// every call of it fails.
  LateObject(IDispatch* object, std::string name, MemberIds* sharedIds = nullptr)
      : object_(object), name_(std::move(name)), sharedIds_(sharedIds) {}

  /// A method or property with arguments; the answer is empty for a method without one.
  template <typename... A>
  Variant call(const wchar_t* member, const A&... arguments) const {
    return invokeWith(member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, Variant(arguments)...);
  }
  /// A method whose answer nobody wants.
  template <typename... A>
  void run(const wchar_t* member, const A&... arguments) const {
    invokeWith(member, DISPATCH_METHOD, Variant(arguments)...);
  }
  void put(const wchar_t* member, const Variant& value) const;
  /// The object that a property or method answers.
  LateObject child(const Variant& answer, std::string_view childName,
                   MemberIds* sharedIds = nullptr) const;

  IDispatch* get() const { return object_.Get(); }
  const std::string& name() const { return name_; }

 private:
  template <typename... V>
  Variant invokeWith(const wchar_t* member, WORD flags, const V&... arguments) const {
    // In the order of the platform: the last one first.
    std::array<VARIANT, sizeof...(V)> raw{arguments.raw()...};
    return invoke(member, flags, std::span<VARIANT>(raw));
  }
  Variant invoke(const wchar_t* member, WORD flags, std::span<VARIANT> arguments) const;
  Variant send(const wchar_t* member, WORD flags, DISPPARAMS& parameters) const;
  IDispatch& required() const;

  ComPtr<IDispatch> object_;
  std::string name_;
  MemberIds* sharedIds_ = nullptr;
  mutable MemberIds ownIds_;
};

/// A new object of a program id; an error (429) that names it where it cannot be made.
LateObject createByProgId(const std::wstring& progId);
/// The same in two steps, for what is made often.
CLSID classOf(const std::wstring& progId);
LateObject createByClass(const CLSID& classId, std::string name);

}  // namespace kt7::automation
