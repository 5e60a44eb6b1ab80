// Writes the interface description of the Windows component, and the C++ that follows from it, from
// the table of operations and the list of fixed ids.
//   describe IDS_FILE FOLDER

#include <exception>
#include <fstream>
#include <iostream>
#include <stdexcept>

#include "interface_text.h"
#include "member_text.h"

namespace {

using kt7::description::Ids;

void write(const std::string& folder, const char* name, const Ids& ids,
           void (*content)(std::ostream&, const Ids&)) {
  std::ofstream out(folder + "/" + name);
  content(out, ids);
  out.close();
  if (!out) throw std::runtime_error(folder + "/" + name + " cannot be written");
}

void describe(const std::string& idsFile, const std::string& folder) {
  std::ifstream in(idsFile);
  if (!in) throw std::runtime_error(idsFile + " cannot be read");
  const Ids ids = kt7::description::readIds(in);
  write(folder, "KT7HRLib.idl", ids, kt7::description::writeInterfaceDescription);
  write(folder, "operation_slots.inc", ids, kt7::description::writeOperationSlots);
  write(folder, "self_calls.inc", ids, kt7::description::writeSelfCalls);
  write(folder, "profile_slots.inc", ids, kt7::description::writeProfileSlots);
  write(folder, "profile_self_calls.inc", ids, kt7::description::writeProfileSelfCalls);
  write(folder, "profile_ids.inc", ids, kt7::description::writeProfileIds);
  write(folder, "identities.inc", ids, kt7::description::writeIdentities);
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) {
    std::cerr << "describe IDS_FILE FOLDER\n";
    return 2;
  }
  try {
    describe(arguments[1], arguments[2]);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "describe: " << error.what() << "\n";
    return 1;
  }
}
