#include "ui/qt/quit_signals.h"

#include <sys/socket.h>
#include <unistd.h>
#include <QSocketNotifier>
#include <csignal>

namespace bq::qt {
namespace {

int signal_fds[2] = {-1, -1};

// Only async-signal-safe work here: one byte down the pipe, read in the event loop.
void Forward(int) {
  const char byte = 1;
  [[maybe_unused]] const ssize_t written = ::write(signal_fds[0], &byte, 1);
}

}  // namespace

void RunOnTerminationSignals(QObject* owner, std::function<void()> on_signal) {
  if (::socketpair(AF_UNIX, SOCK_STREAM, 0, signal_fds) != 0) return;
  auto* notifier = new QSocketNotifier(signal_fds[1], QSocketNotifier::Read, owner);
  QObject::connect(notifier, &QSocketNotifier::activated, owner, [on_signal] {
    char byte = 0;
    [[maybe_unused]] const ssize_t got = ::read(signal_fds[1], &byte, 1);
    on_signal();
  });
  struct sigaction action = {};
  action.sa_handler = Forward;
  sigemptyset(&action.sa_mask);
  action.sa_flags = SA_RESTART;
  for (int sig : {SIGTERM, SIGINT, SIGHUP}) ::sigaction(sig, &action, nullptr);
}

}  // namespace bq::qt
