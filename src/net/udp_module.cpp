// The module that holds the UDP link and the network libraries; see LoadedLink.
#include <QtGlobal>
#include <type_traits>

#include "net/loaded_link.h"
#include "net/udp_link.h"

extern "C" Q_DECL_EXPORT bq::net::Link* bq_make_udp_link() {
  static_assert(std::is_same_v<decltype(&bq_make_udp_link), bq::net::MakeLinkFunction>);
  return new bq::net::UdpLink();
}
