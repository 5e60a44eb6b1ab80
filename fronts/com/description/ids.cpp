#include "ids.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace kt7::description {

namespace {

bool known(const std::vector<Member>& members, const Member& asked) {
  return std::any_of(members.begin(), members.end(), [&](const Member& member) {
    return member.name == asked.name || member.dispatchId == asked.dispatchId;
  });
}

void addMember(Ids& ids, bool isReserved, std::istream& words, const std::string& line) {
  std::string owner;
  Member member;
  words >> owner >> member.name >> member.dispatchId;
  if (!words || known(ids.members[owner], member) || known(ids.reserved[owner], member)) {
    throw std::runtime_error("an id is missing or given twice: " + line);
  }
  (isReserved ? ids.reserved : ids.members)[owner].push_back(member);
}

void addGuid(Ids& ids, bool isLibrary, std::istream& words, const std::string& line) {
  std::string name;
  std::string guid;
  words >> name >> guid;
  if (isLibrary) words >> ids.libraryVersion;
  if (!words || guid.size() != 36 || !ids.guids.emplace(name, guid).second) {
    throw std::runtime_error("an identity is missing or given twice: " + line);
  }
}

}  // namespace

const std::string& Ids::guid(const std::string& name) const {
  const auto at = guids.find(name);
  if (at == guids.end()) throw std::runtime_error("no identity of " + name);
  return at->second;
}

Ids readIds(std::istream& file) {
  Ids ids;
  std::string line;
  while (std::getline(file, line)) {
    std::istringstream words(line);
    std::string kind;
    if (!(words >> kind) || kind.front() == '#') continue;
    if (kind == "member" || kind == "reserved") {
      addMember(ids, kind == "reserved", words, line);
    } else if (kind == "library" || kind == "interface" || kind == "class" ||
               kind == "enumeration") {
      addGuid(ids, kind == "library", words, line);
    } else {
      throw std::runtime_error("not a line of the list of ids: " + line);
    }
  }
  return ids;
}

}  // namespace kt7::description
