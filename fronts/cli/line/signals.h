#pragma once

namespace kt7::cli {

/// A file that grows beyond the limit of its size is a failed write, told like a full disk, and not
/// the end of the process.
void ignoreFileSizeLimit();

/// While it lives SIGINT, SIGTERM and SIGHUP ask the process to stop, and a second one ends it at
/// once. Signals that the process was started to ignore stay ignored. One at a time.
class StopRequest {
 public:
  StopRequest();
  ~StopRequest();
  StopRequest(const StopRequest&) = delete;
  StopRequest& operator=(const StopRequest&) = delete;

  /// The number of the signal that came, 0 for none.
  static int signal();
  /// What the shell shows for a process that the signal ended: 130, 143, 129.
  static int exitCode() { return kEndedBySignal + signal(); }

 private:
  static constexpr int kEndedBySignal = 128;
};

}  // namespace kt7::cli
