#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace bq::net {

// One endpoint of the connection with the opponent: one datagram is one message. Only what comes
// from the configured opponent's address and port is handed on, and only when it is no longer
// than the longest message; everything else is dropped and counted, and a sender other than the
// opponent is named to the stranger reporter, so that the player can learn why nothing happens.
class Link {
 public:
  using Receiver = std::function<void(const std::string& message)>;
  using StrangerReporter = std::function<void(const std::string& host, int port)>;

  virtual ~Link() = default;

  // Sets the opponent's address and port. The local port is bound by the first call that
  // succeeds and kept for the rest of the run; later calls leave it alone. Returns "" on success,
  // otherwise why it failed, in words a player can act on.
  virtual std::string Configure(const std::string& remote_host, long remote_port,
                                long local_port) = 0;
  virtual void Send(std::string_view message) = 0;
  // The address to give the opponent: the first non-loopback IPv4 address of this host, or
  // 127.0.0.1 when there is none.
  virtual std::string LocalIP() const = 0;
  virtual int LocalPort() const = 0;  // 0 until bound

  void SetReceiver(Receiver receiver) { receiver_ = std::move(receiver); }
  void SetStrangerReporter(StrangerReporter reporter) { stranger_ = std::move(reporter); }
  int dropped() const { return dropped_; }

 protected:
  void Deliver(const std::string& message) {
    if (receiver_) receiver_(message);
  }
  void Drop() { ++dropped_; }
  // A datagram from anyone but the opponent: dropped, and its sender reported.
  void Stranger(const std::string& host, int port) {
    Drop();
    if (stranger_) stranger_(host, port);
  }

 private:
  Receiver receiver_;
  StrangerReporter stranger_;
  int dropped_ = 0;
};

// Two endpoints joined in memory, for tests: what one sends waits in the other's queue until
// Pump() hands it over, as an event loop would, one message at a time.
class MemoryLink : public Link {
 public:
  // Two ends that reach each other once each is configured with the other's port.
  static std::pair<std::unique_ptr<MemoryLink>, std::unique_ptr<MemoryLink>> Pair();

  std::string Configure(const std::string& remote_host, long remote_port, long local_port) override;
  void Send(std::string_view message) override;
  std::string LocalIP() const override { return "127.0.0.1"; }
  int LocalPort() const override { return local_port_; }

  // A datagram from anyone: kept only when it comes from the configured opponent.
  void Arrive(const std::string& from_host, int from_port, std::string message);
  // Hands over every waiting message, including those sent while handing over. Returns how many.
  int Pump();
  int waiting() const;

 private:
  struct Shared;
  std::shared_ptr<Shared> shared_;
  int side_ = 0;
  int local_port_ = 0;
  std::string remote_host_;
  long remote_port_ = 0;
};

}  // namespace bq::net
