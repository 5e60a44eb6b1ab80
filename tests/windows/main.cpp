// A compiled client of the automation components. Ends with the line "N passed, M failed".
//   kt7client shell DLL                                 all that needs no database
//   kt7client calls REQUESTS ANSWERS CONNECTION_STRING  every operation, against the answers of
//                                                       kt7hr rpc
//   kt7client lifetimes DLL DATABASE                    what is left of KT7Database2's objects

#include <cstdio>
#include <string>

#include "checks.h"
#include "client.h"
#include "fronts/com/automation/text.h"

namespace {

using namespace kt7::client;

constexpr int kShellChecks = 496;
constexpr int kLifetimeChecks = 20;

void testShell(const std::string& path) {
  const Library library(kt7::automation::toWide(path));
  testRegistration(library);
  testTypeLibrary();
  testCalls();
  testByReference();
  testProfile();
  testHostObjects();
  testMessages();
  testSelfCalls();
  testLifetimes(library);
  testThreads();
}

}  // namespace

int main(int count, char** arguments) {
  setvbuf(stdout, nullptr, _IONBF, 0);
  const std::string what = count > 1 ? arguments[1] : "";
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  int expected = kShellChecks;
  if (what == "shell" && count == 3) {
    testShell(arguments[2]);
  } else if (what == "calls" && count == 5) {
    expected = testAnswers(arguments[2], arguments[3], arguments[4]);
  } else if (what == "lifetimes" && count == 4) {
    testDatabase2Lifetimes(Library(kt7::automation::toWide(arguments[2])), arguments[3]);
    expected = kLifetimeChecks;
  } else {
    std::puts(
        "kt7client shell DLL | calls REQUESTS ANSWERS CONNECTION_STRING | lifetimes DLL DATABASE");
    return 2;
  }
  const int status = summary(expected);
  CoUninitialize();
  return status;
}
