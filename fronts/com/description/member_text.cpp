#include "member_text.h"

#include <algorithm>

namespace kt7::description {

namespace {

std::string slotName(const DescribedMember& member) {
  if (member.kind == MemberKind::PropertyGet) return "get_" + member.name;
  if (member.kind == MemberKind::PropertyPut) return "put_" + member.name;
  return member.name;
}

/// The type in a slot: the published enumerations are global, the library has its own of that name.
std::string slotType(const TypeName& type) {
  return type.automation.starts_with("KT7") ? "::" + type.automation : type.automation;
}

/// "HRESULT STDMETHODCALLTYPE GETDAYRATE(BSTR EmployeeCode, IDispatch** DataObj, double* result)"
void writeSlotHead(std::ostream& out, const DescribedMember& member) {
  out << "HRESULT STDMETHODCALLTYPE " << slotName(member) << "(";
  const char* before = "";
  for (const DescribedParameter& parameter : member.parameters) {
    out << before << slotType(parameter.type) << (parameter.byReference ? "* " : " ")
        << parameter.name;
    before = ", ";
  }
  if (!member.result.automation.empty()) out << before << member.result.automation << "* result";
  out << ") override";
}

/// "call<Table, row>(result, EmployeeCode, DataObj)"
void writeSlot(std::ostream& out, const DescribedMember& member, const char* call) {
  writeSlotHead(out, member);
  out << " {\n  return " << call << "<" << member.row << ">("
      << (member.result.automation.empty() ? "nullptr" : "result");
  for (const DescribedParameter& parameter : member.parameters) out << ", " << parameter.name;
  out << ");\n}\n";
}

std::string libraryParameter(const DescribedParameter& parameter) {
  if (parameter.byReference) return parameter.type.library + "& " + parameter.name;
  if (parameter.type.library == "std::string") return "const std::string& " + parameter.name;
  return parameter.type.library + " " + parameter.name;
}

/// "double GETDAYRATE(...) override { return through<row>(&::_HRObject::GETDAYRATE, ...); }"
void writeSelfCall(std::ostream& out, const DescribedMember& member, const char* interfaceName,
                   const char* call) {
  out << (member.result.library.empty() ? "void" : member.result.library) << " " << member.name
      << "(";
  const char* before = "";
  for (const DescribedParameter& parameter : member.parameters) {
    out << before << libraryParameter(parameter);
    before = ", ";
  }
  out << ")" << (member.isConst ? " const" : "") << " override {\n  return " << call << "<"
      << member.row << ">(&" << interfaceName << "::" << slotName(member);
  for (const DescribedParameter& parameter : member.parameters) out << ", " << parameter.name;
  out << ");\n}\n";
}

void writeIdsOf(std::ostream& out, const char* name, MemberKind kind,
                std::vector<DescribedMember> members) {
  std::erase_if(members, [&](const DescribedMember& member) { return member.kind != kind; });
  std::sort(members.begin(), members.end(),
            [](const DescribedMember& a, const DescribedMember& b) { return a.row < b.row; });
  out << "inline constexpr std::array<DISPID, " << members.size() << "> " << name << "{";
  const char* before = "";
  for (const DescribedMember& member : members) {
    out << before << member.dispatchId;
    before = ", ";
  }
  out << "};\n";
}

/// {0x12345678, 0x9ABC, 0xDEF0, {0x12, ...}} of a GUID in text form.
std::string guidValue(std::string text) {
  std::erase(text, '-');
  const auto hex = [&](std::size_t at, std::size_t digits) {
    return "0x" + text.substr(at, digits);
  };
  std::string value = "{" + hex(0, 8) + ", " + hex(8, 4) + ", " + hex(12, 4) + ", {";
  for (std::size_t at = 16; at < 32; at += 2) value += hex(at, 2) + (at < 30 ? ", " : "}}");
  return value;
}

}  // namespace

void writeOperationSlots(std::ostream& out, const Ids& ids) {
  for (const DescribedMember& member : describeOperations(ids)) writeSlot(out, member, "operation");
}

void writeSelfCalls(std::ostream& out, const Ids& ids) {
  for (const DescribedMember& member : describeOperations(ids)) {
    writeSelfCall(out, member, "::_HRObject", "through");
  }
}

void writeProfileSlots(std::ostream& out, const Ids& ids) {
  for (const DescribedMember& member : describeProfile(ids)) {
    const char* call = member.kind == MemberKind::PropertyGet   ? "getProperty"
                       : member.kind == MemberKind::PropertyPut ? "putProperty"
                                                                : "method";
    writeSlot(out, member, call);
  }
}

void writeProfileSelfCalls(std::ostream& out, const Ids& ids) {
  for (const DescribedMember& member : describeProfile(ids)) {
    const char* call = member.kind == MemberKind::PropertyGet   ? "get"
                       : member.kind == MemberKind::PropertyPut ? "put"
                                                                : "method";
    writeSelfCall(out, member, "::_EmployeeObject", call);
  }
}

void writeProfileIds(std::ostream& out, const Ids& ids) {
  const std::vector<DescribedMember> members = describeProfile(ids);
  writeIdsOf(out, "kPropertyIds", MemberKind::PropertyGet, members);
  writeIdsOf(out, "kMethodIds", MemberKind::Method, members);
}

void writeIdentities(std::ostream& out, const Ids& ids) {
  out << "inline constexpr wchar_t kLibraryVersion[] = L\"" << ids.libraryVersion << "\";\n";
  for (const char* name :
       {"KT7HRLib", "_HRObject", "_EmployeeObject", "HRObject", "EmployeeObject"}) {
    const std::string constant =
        name[0] == '_' ? std::string("kInterface") + name : std::string("k") + name + "Id";
    out << "inline constexpr GUID " << constant << guidValue(ids.guid(name)) << ";\n";
  }
}

}  // namespace kt7::description
