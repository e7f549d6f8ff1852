// Over loopback UDP: a completed move on one copy until it has been replayed on the other, and a
// raw ping-pong of a datagram of the same size, in one run so that the two figures compare.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QUdpSocket>
#include <filesystem>

#include "net/udp_link.h"
#include "quiet_platform.h"
#include "ui/model/app_model.h"

namespace {

using bq::bench::QuietPlatform;

quint16 FreePort() {
  QUdpSocket probe;
  probe.bind(QHostAddress::LocalHost, 0);
  return probe.localPort();
}

template <typename Done>
void Spin(Done done) {
  while (!done()) QCoreApplication::processEvents(QEventLoop::AllEvents);
}

struct Copy {
  explicit Copy(const char* file)
      : app(platform, (std::filesystem::temp_directory_path() / file).string()) {
    app.Load();
    app.SetLink(&link);
    link.SetReceiver([this](const std::string& m) { app.Receive(m); });
  }
  void Connect(quint16 mine, quint16 theirs) {
    app.Click("optVsHuman");
    app.Click("cmdSetupRemoteOpponent");
    app.Type("frmCommunicate.txtPortA", std::to_string(mine));
    app.Type("frmCommunicate.txtIPB", "127.0.0.1");
    app.Type("frmCommunicate.txtPortB", std::to_string(theirs));
    app.Click("frmCommunicate.cmdSend");
  }
  int moves_b() const { return app.game().state().move_count_b; }
  QuietPlatform platform;
  bq::net::UdpLink link;
  bq::AppModel app;
};

// Each iteration one copy passes (a look at the Draw Pile, then the confirming button) and the
// other replays it; the two take turns, so the game goes on for ever.
void BM_MoveOverUdp(benchmark::State& state) {
  Copy a("bq-bench-net-a.ini"), b("bq-bench-net-b.ini");
  const quint16 pa = FreePort(), pb = FreePort();
  a.Connect(pa, pb);
  b.Connect(pb, pa);
  a.app.Click("cmdNew");
  Spin([&] { return b.app.IsOpen("frmInvitation"); });
  b.app.Click("frmInvitation.cmdYes");
  Spin([&] { return b.app.game().game_running(); });
  Copy* mover = &b;
  Copy* other = &a;
  for (auto _ : state) {
    const int before = other->moves_b();
    mover->app.Click("lblDrawPile");
    mover->app.Click("cmdPlayA");
    Spin([&] { return other->moves_b() != before; });
    std::swap(mover, other);
  }
}
BENCHMARK(BM_MoveOverUdp)->Unit(benchmark::kMicrosecond)->UseRealTime();

// A datagram of a move's size there and back.
void BM_RawPingPong(benchmark::State& state) {
  QUdpSocket a, b;
  a.bind(QHostAddress::LocalHost, 0);
  b.bind(QHostAddress::LocalHost, 0);
  bool back = false;
  QObject::connect(&b, &QUdpSocket::readyRead, [&] {
    char buffer[16];
    QHostAddress from;
    quint16 port = 0;
    while (b.hasPendingDatagrams()) {
      const qint64 n = b.readDatagram(buffer, sizeof buffer, &from, &port);
      b.writeDatagram(buffer, n, from, port);
    }
  });
  QObject::connect(&a, &QUdpSocket::readyRead, [&] {
    char buffer[16];
    while (a.hasPendingDatagrams()) a.readDatagram(buffer, sizeof buffer);
    back = true;
  });
  for (auto _ : state) {
    back = false;
    a.writeDatagram("pass", 4, QHostAddress::LocalHost, b.localPort());
    Spin([&] { return back; });
  }
}
BENCHMARK(BM_RawPingPong)->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
