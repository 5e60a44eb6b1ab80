// A compiled client of KT7HRLib.dll. Ends with the line "N passed, M failed".
//   client shell DLL                                       all that needs no database
//   client early|late REQUESTS ANSWERS CONNECTION_STRING   every operation, against the answers of
//                                                          kt7hr rpc

#include <cstdio>
#include <string>

#include "answers.h"
#include "checks.h"
#include "client.h"
#include "fronts/com/automation/text.h"

namespace {

using namespace kt7::client;

constexpr int kShellChecks = 540;

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
  } else if ((what == "early" || what == "late") && count == 5) {
    expected = testAnswers(what == "early" ? Binding::Early : Binding::Late, arguments[2],
                           arguments[3], arguments[4]);
  } else {
    std::printf("client shell DLL | client early|late REQUESTS ANSWERS CONNECTION_STRING\n");
    return 2;
  }
  const int status = summary(expected);
  CoUninitialize();
  return status;
}
