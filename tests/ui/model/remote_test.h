#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "net/link.h"
#include "ui/model/app_model.h"
#include "ui/model/fake_platform.h"

namespace bq::test {

// One copy of the program: its settings file, its platform and every window.
struct Copy {
  explicit Copy(unsigned seed) : platform(seed) { app.Load(); }
  bool Click(const std::string& name) { return app.Click(name) == AppModel::Result::kDone; }
  bool Type(const std::string& name, const std::string& text) {
    return app.Type(name, text) == AppModel::Result::kDone;
  }
  bool Up(const std::string& name) {
    const Control* c = app.Find(name);
    return c != nullptr && c->visible && c->enabled && app.IsOpen(AppModel::Split(name).first);
  }
  const Control& C(const std::string& name) { return *app.Find(name); }
  std::string Field(const std::string& f) const { return app.game().GetField(f).value_or("?"); }
  std::string Panel(int i) { return C("StatusBar1.Panel(" + std::to_string(i) + ")").caption; }

  TempSettings file;
  FakePlatform platform;
  AppModel app{platform, file.path()};
};

// Two copies joined by an in-memory link, each set up against the other: "a" on port 1001,
// "b" on 1002. Nothing travels until Pump().
struct Match {
  explicit Match(unsigned seed = 1) : a(seed), b(seed + 1000) {
    auto [la, lb] = net::MemoryLink::Pair();
    link_a = std::move(la);
    link_b = std::move(lb);
    Join(a, *link_a, "1001", "1002");
    Join(b, *link_b, "1002", "1001");
  }
  static void Join(Copy& c, net::MemoryLink& link, const std::string& mine,
                   const std::string& theirs) {
    c.app.SetLink(&link);
    link.SetReceiver([&c](const std::string& m) { c.app.Receive(m); });
    ASSERT_TRUE(c.Click("optVsHuman"));
    ASSERT_TRUE(c.Click("cmdSetupRemoteOpponent"));
    ASSERT_TRUE(c.Type("frmCommunicate.txtPortA", mine));
    ASSERT_TRUE(c.Type("frmCommunicate.txtIPB", " 127.0.0.1 "));
    ASSERT_TRUE(c.Type("frmCommunicate.txtPortB", theirs));
    ASSERT_TRUE(c.Click("frmCommunicate.cmdSend"));
    ASSERT_FALSE(c.app.IsOpen("frmCommunicate"));
  }
  int Pump() { return link_a->Pump(); }
  // "a" invites, "b" accepts, the deal travels.
  void Start() {
    ASSERT_TRUE(a.Click("cmdNew"));
    Pump();
    ASSERT_TRUE(b.app.IsOpen("frmInvitation"));
    ASSERT_TRUE(b.Click("frmInvitation.cmdYes"));
    Pump();
    ASSERT_EQ(b.Field("IsDealer"), "0");
  }

  Copy a, b;
  std::unique_ptr<net::MemoryLink> link_a, link_b;
};

}  // namespace bq::test
