#include "signals.h"

#include <array>
#include <atomic>
#include <csignal>

namespace kt7::cli {

namespace {

constexpr std::array kStops{SIGINT, SIGTERM, SIGHUP};

std::atomic<int> received = 0;
static_assert(std::atomic<int>::is_always_lock_free, "a handler may touch nothing else");
std::array<struct sigaction, kStops.size()> before;

extern "C" void noteStop(int number) {
  received = number;
  for (std::size_t i = 0; i < kStops.size(); ++i) {
    if (before[i].sa_handler != SIG_IGN) std::signal(kStops[i], SIG_DFL);
  }
}

}  // namespace

void ignoreFileSizeLimit() { std::signal(SIGXFSZ, SIG_IGN); }

StopRequest::StopRequest() {
  received = 0;
  struct sigaction action = {};
  action.sa_handler = noteStop;
  action.sa_flags = SA_RESTART;  // what waits for a server goes on waiting
  for (const int stop : kStops) sigaddset(&action.sa_mask, stop);
  for (std::size_t i = 0; i < kStops.size(); ++i) {
    sigaction(kStops[i], nullptr, &before[i]);
    if (before[i].sa_handler != SIG_IGN) sigaction(kStops[i], &action, nullptr);
  }
}

StopRequest::~StopRequest() {
  for (std::size_t i = 0; i < kStops.size(); ++i) sigaction(kStops[i], &before[i], nullptr);
}

int StopRequest::signal() { return received; }

}  // namespace kt7::cli
