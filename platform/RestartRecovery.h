#pragma once
// Restart and recovery after a crash. After a fatal signal the registered
// recovery callback runs on a thread of its own (the failed thread only wakes
// it), then the program starts again with the registered arguments.
//
// The signal handler does only what is safe there: it writes to a pipe that
// wakes the recovery thread, waits on a second pipe with a timeout, and
// re-executes the program. A program that crashes again within 60 seconds of
// such a restart is not restarted once more.

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace orl {

/// Flag of RegisterApplicationRestart: no restart after a reboot (kept for
/// the caller's sake; this platform restarts only after a crash).
inline constexpr unsigned kRestartNoReboot = 8;

/// Arguments the program gets when it is restarted (the program path is added
/// in front). False when the crash handlers cannot be installed.
bool RegisterApplicationRestart(const std::vector<std::string>& arguments, unsigned flags);
/// The callback saves what can be saved; it runs on the recovery thread.
bool RegisterApplicationRecoveryCallback(std::function<void()> callback, std::chrono::milliseconds pingInterval);
void UnregisterApplicationRestart();
void UnregisterApplicationRecoveryCallback();

/// Called by the callback while it works and when it is done.
void ApplicationRecoveryInProgress();
void ApplicationRecoveryFinished(bool bSuccess);

} // namespace orl
