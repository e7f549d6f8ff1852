// Two copies of the program, each run headless and driven line by line, play one another over
// UDP on 127.0.0.1: set-up, the invitation, a whole game, and the exit.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

#include "support/temp_settings.h"

namespace {

// One running copy: commands go to its standard input, answers are read back line by line.
class Program {
 public:
  Program(const std::string& settings, int seed) {
    int to[2], from[2];
    if (pipe(to) != 0 || pipe(from) != 0) return;
    pid_ = fork();
    if (pid_ == 0) {
      dup2(to[0], 0);
      dup2(from[1], 1);
      close(to[1]);
      close(from[0]);
      const std::string s = std::to_string(seed);
      execl(BQ_PROGRAM, BQ_PROGRAM, "--headless", "--settings", settings.c_str(), "--seed",
            s.c_str(), static_cast<char*>(nullptr));
      _exit(127);
    }
    close(to[0]);
    close(from[1]);
    in_ = fdopen(to[1], "w");
    out_ = fdopen(from[0], "r");
  }
  ~Program() {
    if (in_) fclose(in_);
    if (pid_ > 0) {
      kill(pid_, SIGTERM);
      waitpid(pid_, nullptr, 0);
    }
    if (out_) fclose(out_);
  }

  // Runs the commands and returns every line they printed. A final "get TurnOwner" marks the end.
  std::string Ask(const std::string& commands) {
    fputs((commands + "get TurnOwner\n").c_str(), in_);
    fflush(in_);
    std::string lines;
    char buffer[1024];
    while (fgets(buffer, sizeof buffer, out_) != nullptr) {
      const std::string line = buffer;
      if (line.rfind("TurnOwner=", 0) == 0) {
        turn_owner_ = std::stoi(line.substr(10));
        return lines;
      }
      lines += line;
    }
    return lines + "(ended)\n";
  }
  std::string Get(const std::string& field) {
    const std::string out = Ask("get " + field + "\n");
    return out.substr(field.size() + 1, out.size() - field.size() - 2);
  }
  bool Up(const std::string& control) {
    const std::string out = Ask("show " + control + "\n");
    return out.find("visible=1 enabled=1") != std::string::npos;
  }
  int turn_owner() const { return turn_owner_; }

 private:
  pid_t pid_ = 0;
  FILE* in_ = nullptr;
  FILE* out_ = nullptr;
  int turn_owner_ = 0;
};

std::vector<int> Numbers(const std::string& text) {
  std::vector<int> v;
  std::istringstream in(text);
  for (int x; in >> x;) v.push_back(x);
  return v;
}

std::string Connect(int mine, int theirs) {
  return "click optVsHuman\nclick cmdSetupRemoteOpponent\ntype frmCommunicate.txtPortA " +
         std::to_string(mine) + "\ntype frmCommunicate.txtIPB 127.0.0.1\n" +
         "type frmCommunicate.txtPortB " + std::to_string(theirs) +
         "\nclick frmCommunicate.cmdSend\n";
}

// One move by the ideal-slot rule: a card belongs in the slot its tens make.
void Move(Program& p) {
  const std::vector<int> stack = Numbers(p.Get("Stacks(1)"));
  const auto fits = [&](int k) { return (stack[static_cast<size_t>(k - 1)] - 1) / 10 + 1 == k; };
  const int discard = std::stoi(p.Get("DiscardTop"));
  const int k = (discard - 1) / 10 + 1;
  if (!fits(k)) {
    p.Ask("click lblDiscardPile\nclick lblCardA(" + std::to_string(k) + ")\nclick cmdPlayA\n");
    return;
  }
  const std::string look = p.Ask("click lblDrawPile\nshow lblDrawPile\n");
  const int drawn = Numbers(look.substr(look.find('"') + 1)).front();
  const int j = (drawn - 1) / 10 + 1;
  p.Ask(fits(j) ? "click cmdPlayA\n"
                : "click lblCardA(" + std::to_string(j) + ")\nclick cmdPlayA\n");
}

TEST(TwoCopies, InviteAcceptPlayToTheEndAndExit) {
  bq::test::TempSettings fa, fb;
  const int pa = 20000 + getpid() % 20000, pb = pa + 1;
  Program a(fa.path(), 7), b(fb.path(), 8);
  EXPECT_NE(a.Ask(Connect(pa, pb)).find("closed: frmCommunicate"), std::string::npos);
  b.Ask(Connect(pb, pa));

  EXPECT_NE(a.Ask("click cmdNew\n").find("sent: invi\n"), std::string::npos);
  std::string out = b.Ask("wait 200\n");
  EXPECT_NE(out.find("received: invi\nopen: frmInvitation\n"), std::string::npos) << out;
  EXPECT_NE(b.Ask("click frmInvitation.cmdYes\n").find("sent: acce\nclosed: frmInvitation\n"),
            std::string::npos);
  out = a.Ask("wait 200\n");
  EXPECT_NE(out.find("received: acce\nsent: setu 0 0 0 0 0 0 2 2 2"), std::string::npos) << out;
  out = b.Ask("wait 200\n");
  EXPECT_NE(out.find("received: setu"), std::string::npos) << out;
  ASSERT_EQ(a.Get("Stacks(1)"), b.Get("Stacks(2)"));

  int moves = 0;
  while (a.Get("TurnResult") == "0" && moves++ < 400) {
    Program& mover = b.turn_owner() == 1 && b.Up("lblDiscardPile") ? b : a;
    Program& other = &mover == &a ? b : a;
    ASSERT_TRUE(mover.Up("lblDiscardPile")) << "nobody can move";
    Move(mover);
    other.Ask("wait 30\n");
    ASSERT_EQ(a.Get("Stacks(1)"), b.Get("Stacks(2)"));
    ASSERT_EQ(a.Get("DiscardTop"), b.Get("DiscardTop"));
  }
  const std::string ra = a.Get("TurnResult"), rb = b.Get("TurnResult");
  ASSERT_NE(ra, "0");
  EXPECT_GT(moves, 2);
  EXPECT_EQ(ra == "3" ? "3" : ra == "1" ? "2" : "1", rb);
  EXPECT_EQ(a.Get("MoveCountA"), b.Get("MoveCountB"));

  // b was invited, so its exit is announced; a then plays the computer again.
  EXPECT_NE(b.Ask("close frmGame\n").find("sent: exit\n"), std::string::npos);
  out = a.Ask("wait 200\n");
  EXPECT_NE(out.find("received: exit\n"), std::string::npos) << out;
  ASSERT_TRUE(a.Up("cmdExitReceived"));
  a.Ask("click cmdExitReceived\n");
  EXPECT_EQ(a.Get("VsComputer"), "1");
  EXPECT_NE(fa.Read().find("[StatsVsHumans]"), std::string::npos);
}

}  // namespace
