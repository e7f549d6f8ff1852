// Two real UDP endpoints on 127.0.0.1, and a third that nobody listens to; the same through the
// loaded network module.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QUdpSocket>
#include <vector>

#include "net/loaded_link.h"
#include "net/message.h"
#include "net/udp_link.h"

namespace bq::net {
namespace {

// A free port: bound once by a throwaway socket, then released.
long FreePort() {
  QUdpSocket probe;
  probe.bind(QHostAddress::LocalHost, 0);
  return probe.localPort();
}

struct Endpoint {
  UdpLink link;
  std::vector<std::string> got;
  Endpoint() {
    link.SetReceiver([this](const std::string& m) { got.push_back(m); });
  }
};

// Runs the event loop until `done` or a second has passed.
template <typename Done>
bool RunUntil(Done done) {
  QElapsedTimer clock;
  clock.start();
  while (!done() && clock.elapsed() < 1000) RunEventsFor(5);
  return done();
}

TEST(UdpLink, OnlyTheOpponentReachesTheGame) {
  Endpoint a, b;
  const long pa = FreePort(), pb = FreePort();
  ASSERT_EQ(a.link.Configure("127.0.0.1", pb, pa), "");
  ASSERT_EQ(b.link.Configure("localhost", pa, pb), "");  // a host name does as well
  EXPECT_EQ(a.link.LocalPort(), pa);
  a.link.Send("disc 7");
  b.link.Send("smac 312");
  ASSERT_TRUE(RunUntil([&] { return b.got.size() == 1 && a.got.size() == 1; }));
  EXPECT_EQ(b.got[0], "disc 7");
  EXPECT_EQ(a.got[0], "smac 312");

  // A stranger's datagram, and one longer than any message, are dropped and counted.
  QUdpSocket stranger;
  stranger.writeDatagram("quit", QHostAddress::LocalHost, static_cast<quint16>(pb));
  a.link.Send(std::string(kMaxMessageLength + 1, 'x'));
  a.link.Send(std::string(kMaxMessageLength, 'y'));
  ASSERT_TRUE(RunUntil([&] { return b.link.dropped() == 2 && b.got.size() == 2; }));
  EXPECT_EQ(b.got[1].size(), kMaxMessageLength);

  // The local port is bound once: a later set-up with another port keeps the first.
  EXPECT_EQ(a.link.Configure("127.0.0.1", pb, FreePort()), "");
  EXPECT_EQ(a.link.LocalPort(), pa);
  EXPECT_EQ(a.link.Configure("[::1]", pb, 0), "");
}

// The program's link: the module loaded when first needed carries messages both ways.
TEST(UdpLink, TheLoadedModuleCarriesMessagesBothWays) {
  LoadedLink a(BQ_NET_MODULE), b(BQ_NET_MODULE);
  std::string got;
  a.SetReceiver([&](const std::string& m) { got += "a:" + m; });
  b.SetReceiver([&](const std::string& m) { got += "b:" + m; });
  const long pa = FreePort(), pb = FreePort();
  ASSERT_EQ(a.Configure("127.0.0.1", pb, pa), "");
  ASSERT_EQ(b.Configure("127.0.0.1", pa, pb), "");
  a.Send("invi");
  ASSERT_TRUE(RunUntil([&] { return got == "b:invi"; }));
  b.Send("acce");
  ASSERT_TRUE(RunUntil([&] { return got == "b:invia:acce"; }));
  EXPECT_EQ(
      LoadedLink("/nowhere/module.so").Configure("127.0.0.1", pb, pa).rfind("The program's", 0),
      0u);
}

TEST(UdpLink, FailuresSayWhatToChange) {
  Endpoint a, b;
  const long pa = FreePort();
  ASSERT_EQ(a.link.Configure("127.0.0.1", 5000, pa), "");
  EXPECT_NE(b.link.Configure("127.0.0.1", 5000, pa).find("already in use"), std::string::npos);
  EXPECT_EQ(b.link.LocalPort(), 0);  // nothing bound: the next Send may try another port
  EXPECT_NE(b.link.Configure("no-such-host.invalid", 5000, FreePort()).find("not found"),
            std::string::npos);
  EXPECT_NE(b.link.Configure("127.0.0.1", 70000, FreePort()).find("1 to 65535"), std::string::npos);
  EXPECT_FALSE(a.link.LocalIP().empty());
}

}  // namespace
}  // namespace bq::net

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
