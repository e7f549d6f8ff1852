#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "net/link.h"

namespace bq::net {

// The link over UDP, kept in a module of its own with the network libraries and loaded when the
// network is first needed (the opponent's address set, or this computer's asked for), so that
// start-up does not pay for them. Until then nothing is sent and no port is bound.
class LoadedLink : public Link {
 public:
  explicit LoadedLink(std::string module_path);
  ~LoadedLink() override;

  std::string Configure(const std::string& remote_host, long remote_port, long local_port) override;
  void Send(std::string_view message) override;
  std::string LocalIP() const override;
  int LocalPort() const override;

 private:
  Link* Loaded() const;  // nullptr when the module cannot be loaded; failure_ says why

  std::string module_path_;
  mutable std::unique_ptr<Link> link_;
  mutable std::string failure_;
  mutable bool tried_ = false;
};

// What the module exports under kMakeLinkSymbol: a new UDP link.
using MakeLinkFunction = Link* (*)();
inline constexpr char kMakeLinkSymbol[] = "bq_make_udp_link";

// Runs the event loop for `ms` milliseconds, so that datagrams arrive and are handled.
void RunEventsFor(int ms);

}  // namespace bq::net
