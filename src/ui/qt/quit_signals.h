#pragma once

#include <functional>

class QObject;

namespace bq::qt {

// Runs `on_signal` from the event loop when the process is asked to end (SIGTERM, SIGINT,
// SIGHUP), so a logout or Ctrl+C still goes through the exit sequence and saves the settings.
void RunOnTerminationSignals(QObject* owner, std::function<void()> on_signal);

}  // namespace bq::qt
