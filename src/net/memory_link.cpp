#include <deque>

#include "net/link.h"
#include "net/message.h"

namespace bq::net {

struct MemoryLink::Shared {
  std::deque<std::pair<int, std::string>> queue;  // (receiving side, message)
  MemoryLink* ends[2] = {nullptr, nullptr};
  int ports[2] = {0, 0};
};

std::pair<std::unique_ptr<MemoryLink>, std::unique_ptr<MemoryLink>> MemoryLink::Pair() {
  auto shared = std::make_shared<Shared>();
  auto a = std::make_unique<MemoryLink>();
  auto b = std::make_unique<MemoryLink>();
  a->shared_ = b->shared_ = shared;
  a->side_ = 0;
  b->side_ = 1;
  shared->ends[0] = a.get();
  shared->ends[1] = b.get();
  return {std::move(a), std::move(b)};
}

std::string MemoryLink::Configure(const std::string& remote_host, long remote_port,
                                  long local_port) {
  if (remote_host.empty()) return "no opponent address";
  if (local_port_ == 0) {
    if (local_port < 1 || local_port > 65535) return "your port must be from 1 to 65535";
    if (shared_->ports[1 - side_] == local_port)
      return "port " + std::to_string(local_port) + " is already in use";
    local_port_ = static_cast<int>(local_port);
    shared_->ports[side_] = local_port_;
  }
  remote_host_ = remote_host;
  remote_port_ = remote_port;
  return "";
}

void MemoryLink::Send(std::string_view message) {
  if (local_port_ == 0) return;
  MemoryLink* other = shared_->ends[1 - side_];
  // Like a datagram to a port nobody listens on, a message to the wrong place is lost.
  if (other == nullptr || other->local_port_ != remote_port_) return;
  other->Arrive("127.0.0.1", local_port_, std::string(message));
}

void MemoryLink::Arrive(const std::string& from_host, int from_port, std::string message) {
  if (local_port_ == 0) return;
  const bool from_opponent =
      (from_host == remote_host_ || remote_host_ == "localhost") && from_port == remote_port_;
  if (!from_opponent) return Stranger(from_host, from_port);
  if (message.size() > kMaxMessageLength) return Drop();
  shared_->queue.emplace_back(side_, std::move(message));
}

int MemoryLink::Pump() {
  int handed = 0;
  while (!shared_->queue.empty()) {
    auto [side, message] = std::move(shared_->queue.front());
    shared_->queue.pop_front();
    shared_->ends[side]->Deliver(message);
    ++handed;
  }
  return handed;
}

int MemoryLink::waiting() const {
  return static_cast<int>(shared_->queue.size());
}

}  // namespace bq::net
