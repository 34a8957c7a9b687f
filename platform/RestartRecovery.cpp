#include "platform/RestartRecovery.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <thread>

#include "platform/ShellFolders.h"

extern char** environ;

namespace orl {
namespace {

constexpr int kFatalSignals[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};
constexpr char kEpochVariable[] = "ORL_RESTART_EPOCH=";
constexpr time_t kNoRestartWithin = 60;
constexpr char kWake = 'w', kQuit = 'q', kPing = 'p', kDone = 'd';

// Everything the signal handler touches is prepared beforehand: it allocates nothing.
struct TRestartImage {
  std::string Program;
  std::vector<std::string> Arguments;
  std::vector<std::string> Environment;
  std::vector<char*> Argv;
  std::vector<char*> Envp;
  char* EpochDigits = nullptr;  // inside the last environment entry
};

TRestartImage GImage;
std::atomic<bool> GRestartRegistered{false};
std::atomic<bool> GHandling{false};
time_t GNoRestartBefore = 0;
int GWakePipe[2] = {-1, -1};
int GDonePipe[2] = {-1, -1};
int GPingMs = 30000;
std::vector<char> GAltStack;

class TRecoveryThread {
public:
  ~TRecoveryThread() { Stop(); }
  void Start(std::function<void()> callback) {
    Stop();
    FCallback = std::move(callback);
    FThread = std::thread([this] { Run(); });
  }
  void Stop() {
    if (!FThread.joinable()) return;
    const char quit = kQuit;
    (void)!::write(GWakePipe[1], &quit, 1);
    FThread.join();
  }

private:
  void Run() {
    char c = 0;
    while (::read(GWakePipe[0], &c, 1) == 1 && c == kWake) {
      try {
        FCallback();
      } catch (...) {
      }
      const char done = kDone;
      (void)!::write(GDonePipe[1], &done, 1);
    }
  }
  std::function<void()> FCallback;
  std::thread FThread;
};

TRecoveryThread& RecoveryThread() {
  static TRecoveryThread thread;
  return thread;
}

void WriteEpoch(char* digits, time_t now) {
  for (int i = 19; i >= 0; --i) {
    digits[i] = char('0' + now % 10);
    now /= 10;
  }
}

// Waits while the callback keeps reporting progress, at most one ping interval of silence.
void WaitForRecovery() {
  pollfd fd{GDonePipe[0], POLLIN, 0};
  for (;;) {
    if (::poll(&fd, 1, GPingMs) <= 0) return;
    char c = 0;
    if (::read(GDonePipe[0], &c, 1) != 1 || c == kDone) return;
  }
}

void Restart() {
  const time_t now = ::time(nullptr);
  if (!GRestartRegistered.load() || now < GNoRestartBefore) return;
  WriteEpoch(GImage.EpochDigits, now);
  sigset_t all;
  sigemptyset(&all);
  for (int s : kFatalSignals) sigaddset(&all, s);
  ::sigprocmask(SIG_UNBLOCK, &all, nullptr);
  ::execve(GImage.Program.c_str(), GImage.Argv.data(), GImage.Envp.data());
}

void OnFatalSignal(int signal) {
  if (!GHandling.exchange(true)) {
    if (GWakePipe[1] >= 0) {
      const char wake = kWake;
      if (::write(GWakePipe[1], &wake, 1) == 1) WaitForRecovery();
    }
  }
  // Here also when the recovery itself failed: restart without it.
  Restart();
  ::signal(signal, SIG_DFL);
  ::raise(signal);
}

bool OpenPipes() {
  if (GWakePipe[0] >= 0) return true;
  return ::pipe2(GWakePipe, O_CLOEXEC) == 0 && ::pipe2(GDonePipe, O_CLOEXEC) == 0;
}

bool InstallHandlers() {
  GAltStack.resize(std::max<size_t>(SIGSTKSZ, 64 * 1024));
  stack_t stack{};
  stack.ss_sp = GAltStack.data();
  stack.ss_size = GAltStack.size();
  if (::sigaltstack(&stack, nullptr) != 0) return false;
  struct sigaction action {};
  action.sa_handler = OnFatalSignal;
  action.sa_flags = SA_ONSTACK;
  sigemptyset(&action.sa_mask);
  for (int s : kFatalSignals)
    if (::sigaction(s, &action, nullptr) != 0) return false;
  return true;
}

void BuildImage(const std::vector<std::string>& arguments) {
  GImage.Program = ProgramFilePath().string();
  GImage.Arguments.assign(1, GImage.Program);
  GImage.Arguments.insert(GImage.Arguments.end(), arguments.begin(), arguments.end());
  GImage.Environment.clear();
  for (char** e = environ; e && *e; ++e)
    if (std::strncmp(*e, kEpochVariable, sizeof kEpochVariable - 1) != 0) GImage.Environment.emplace_back(*e);
  GImage.Environment.push_back(std::string(kEpochVariable) + std::string(20, '0'));
  GImage.Argv.clear();
  for (std::string& a : GImage.Arguments) GImage.Argv.push_back(a.data());
  GImage.Argv.push_back(nullptr);
  GImage.Envp.clear();
  for (std::string& e : GImage.Environment) GImage.Envp.push_back(e.data());
  GImage.Envp.push_back(nullptr);
  GImage.EpochDigits = GImage.Environment.back().data() + sizeof kEpochVariable - 1;
}

// A program that was itself started by a restart less than a minute ago is
// not restarted again, so a crash at start-up cannot loop.
void NoteEarlierRestart() {
  const char* epoch = std::getenv("ORL_RESTART_EPOCH");
  if (epoch && *epoch) GNoRestartBefore = time_t(std::strtoll(epoch, nullptr, 10)) + kNoRestartWithin;
}

} // namespace

bool RegisterApplicationRestart(const std::vector<std::string>& arguments, unsigned /*flags*/) {
  if (!OpenPipes() || !InstallHandlers()) return false;
  BuildImage(arguments);
  NoteEarlierRestart();
  GRestartRegistered = true;
  return true;
}

bool RegisterApplicationRecoveryCallback(std::function<void()> callback, std::chrono::milliseconds pingInterval) {
  if (!OpenPipes()) return false;
  GPingMs = int(pingInterval.count());
  RecoveryThread().Start(std::move(callback));
  return true;
}

void UnregisterApplicationRestart() { GRestartRegistered = false; }

void UnregisterApplicationRecoveryCallback() { RecoveryThread().Stop(); }

void ApplicationRecoveryInProgress() {
  const char ping = kPing;
  (void)!::write(GDonePipe[1], &ping, 1);
}

void ApplicationRecoveryFinished(bool /*bSuccess*/) {
  const char done = kDone;
  (void)!::write(GDonePipe[1], &done, 1);
}

} // namespace orl
