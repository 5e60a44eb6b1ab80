#include "interface_text.h"

namespace kt7::description {

namespace {

void writeEnumeration(std::ostream& out, const Ids& ids, const Enumeration& enumeration) {
  out << "\n  typedef [uuid(" << ids.guid(enumeration.name) << ")]\n  enum " << enumeration.name
      << " {\n";
  const char* before = "";
  for (const Enumerator& one : enumeration.enumerators) {
    out << before << "    " << one.name << " = " << one.value;
    before = ",\n";
  }
  out << "\n  } " << enumeration.name << ";\n";
}

void writeParameter(std::ostream& out, const DescribedParameter& parameter) {
  out << (parameter.byReference ? "[in, out" : "[in");
  if (parameter.optional) out << ", optional, defaultvalue(" << parameter.defaultValue << ")";
  out << "] " << parameter.type.automation << (parameter.byReference ? "* " : " ")
      << parameter.name;
}

void writeMember(std::ostream& out, const DescribedMember& member) {
  out << "    [id(" << member.dispatchId << ")";
  if (member.kind == MemberKind::PropertyGet) out << ", propget";
  if (member.kind == MemberKind::PropertyPut) out << ", propput";
  out << "] HRESULT " << member.name << "(";
  const char* before = "";
  for (const DescribedParameter& parameter : member.parameters) {
    out << before;
    writeParameter(out, parameter);
    before = ", ";
  }
  if (!member.result.automation.empty()) {
    out << before << "[out, retval] " << member.result.automation << "* result";
  }
  out << ");\n";
}

void writeInterface(std::ostream& out, const Ids& ids, const std::string& name,
                    const std::vector<DescribedMember>& members) {
  out << "\n  [object, uuid(" << ids.guid(name)
      << "), dual, oleautomation, nonextensible, pointer_default(unique)]\n  interface " << name
      << " : IDispatch {\n";
  for (const DescribedMember& member : members) writeMember(out, member);
  out << "  }\n";
}

void writeClass(std::ostream& out, const Ids& ids, const std::string& name) {
  out << "\n  [uuid(" << ids.guid(name) << ")]\n  coclass " << name
      << " {\n    [default] interface _" << name << ";\n  }\n";
}

}  // namespace

void writeInterfaceDescription(std::ostream& out, const Ids& ids) {
  out << "import \"oaidl.idl\";\n\n[uuid(" << ids.guid("KT7HRLib") << "), version("
      << ids.libraryVersion
      << "), helpstring(\"KT7HRLib: payroll and personnel rules\")]\nlibrary KT7HRLib {\n"
         "  importlib(\"stdole2.tlb\");\n";
  for (const Enumeration& enumeration : describeEnumerations()) {
    writeEnumeration(out, ids, enumeration);
  }
  writeInterface(out, ids, "_HRObject", describeOperations(ids));
  writeInterface(out, ids, "_EmployeeObject", describeProfile(ids));
  writeClass(out, ids, "HRObject");
  writeClass(out, ids, "EmployeeObject");
  out << "}\n";
}

}  // namespace kt7::description
