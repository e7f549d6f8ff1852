// Two copies of the program, each run headless and driven line by line, play one another over
// UDP on 127.0.0.1: set-up, the invitation, the deal and a move.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "support/child_process.h"
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
      bq::test::Exec(BQ_PROGRAM,
                     {"--headless", "--settings", settings, "--seed", std::to_string(seed)});
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
      if (line.rfind("TurnOwner=", 0) == 0) return lines;
      lines += line;
    }
    return lines + "(ended)\n";
  }
  std::string Get(const std::string& field) {
    const std::string out = Ask("get " + field + "\n");
    return out.substr(field.size() + 1, out.size() - field.size() - 2);
  }

 private:
  pid_t pid_ = 0;
  FILE* in_ = nullptr;
  FILE* out_ = nullptr;
};

std::string Connect(int mine, int theirs) {
  return "click optVsHuman\nclick cmdSetupRemoteOpponent\ntype frmCommunicate.txtPortA " +
         std::to_string(mine) + "\ntype frmCommunicate.txtIPB 127.0.0.1\n" +
         "type frmCommunicate.txtPortB " + std::to_string(theirs) +
         "\nclick frmCommunicate.cmdSend\n";
}

TEST(TwoCopies, InviteAcceptDealAndMove) {
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

  // The invited side moves first; its pass travels and both boards stay one game.
  EXPECT_NE(b.Ask("click lblDrawPile\nclick cmdPlayA\n").find("sent: pass\n"), std::string::npos);
  a.Ask("wait 200\n");
  EXPECT_EQ(a.Get("DiscardTop"), b.Get("DiscardTop"));
  EXPECT_EQ(a.Get("MoveCountB"), "1");
}

}  // namespace
