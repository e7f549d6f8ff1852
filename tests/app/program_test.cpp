// The program itself, started as a player would start it: what it does with a settings file that
// is not one, a file-size limit, and command lines it must refuse or pass on to Qt.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "support/child_process.h"
#include "support/temp_settings.h"

namespace bq {
namespace {

namespace fs = std::filesystem;
using test::ChildOptions;
using test::ChildResult;
using test::RunChild;

const std::string kProgram = BQ_PROGRAM;

size_t Lines(const std::string& text) {
  return static_cast<size_t>(std::count(text.begin(), text.end(), '\n'));
}

int ExitCode(const ChildResult& r) {
  return WIFEXITED(r.status) ? WEXITSTATUS(r.status) : -WTERMSIG(r.status);
}

std::string Slurp(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

// Which files are refused is the store's to say; here, that the program stops before touching
// one, and does not hang on a pipe.
TEST(Program, ANamedFileThatIsNoSettingsFileIsRefusedUntouched) {
  test::TempSettings file;
  const fs::path fifo = file.dir() / "fifo";
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  const fs::path foreign = file.dir() / "passwd";
  std::ofstream(foreign) << "root:x:0:0:root:/root:/bin/bash\n";
  for (const std::string& path : {fifo.string(), foreign.string()}) {
    SCOPED_TRACE(path);
    ChildOptions options;
    options.input = "close frmGame\n";
    options.timeout = std::chrono::seconds(10);
    const ChildResult r = RunChild(kProgram, {"--headless", "--settings", path}, options);
    EXPECT_FALSE(r.timed_out);
    EXPECT_EQ(ExitCode(r), 2);
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(Lines(r.err), 1u) << r.err;
    EXPECT_EQ(r.err.rfind("bramblequay: the settings file " + path + " ", 0), 0u) << r.err;
  }
  EXPECT_EQ(Slurp(foreign), "root:x:0:0:root:/root:/bin/bash\n");
  EXPECT_TRUE(fs::is_fifo(fifo));
}

TEST(Program, ADamagedUsualFileIsKeptAsideAndTheGameStartsAfresh) {
  test::TempSettings dir;
  const fs::path program = dir.dir() / "bramblequay";
  fs::copy_file(kProgram, program);
  std::ofstream(dir.dir() / "click.wav");  // with its data beside it, a copy keeps its file there
  const fs::path elsewhere = dir.dir() / "elsewhere.ini";
  std::ofstream(elsewhere) << "[Options]\nSetStackem=1\n";
  // Every reason a usual file is set aside is the store's; here, what the program does then.
  fs::create_symlink(elsewhere, dir.path());
  std::ofstream(dir.path() + ".tmp123-1") << "left by a crash";
  ChildOptions options;
  options.input = "get StackSize\nclose frmGame\n";
  const ChildResult r = RunChild(program.string(), {"--headless"}, options);
  EXPECT_EQ(ExitCode(r), 0);
  EXPECT_EQ(r.out, "StackSize=10\n");
  EXPECT_EQ(r.err, "bramblequay: the settings file " + dir.path() +
                       " is a symbolic link; it is kept as " + dir.path() +
                       ".damaged and the game starts with the default settings\n");
  EXPECT_TRUE(fs::is_symlink(dir.path() + ".damaged"));
  EXPECT_FALSE(fs::is_symlink(dir.path()));
  EXPECT_NE(dir.Read().find("SetStackem=0"), std::string::npos) << "a fresh file";
  EXPECT_FALSE(fs::exists(dir.path() + ".tmp123-1"));
  EXPECT_EQ(Slurp(elsewhere), "[Options]\nSetStackem=1\n");
}

// A player who starts the game from a menu never sees standard error: the window says it too.
TEST(Program, ASaveOverAFileSizeLimitFailsPoliteAndLeavesTheOldFile) {
  test::TempSettings file;
  const std::string old = "[Options]\r\nSetStackem=0\r\n";
  file.Write(old);
  ChildOptions options;
  options.input =  // a won game, whose result cannot be saved
      "click cmdNew\nset Stacks(1) 5 15 25 35 45 55 65 75 85 99\n"
      "set DiscardTop 95\nclick lblDiscardPile\nclick lblCardA(10)\nclick cmdPlayA\n"
      "get TurnResult\nclose frmGame\n";
  options.file_limit = 64;  // the full file is some 900 bytes
  const ChildResult r =
      RunChild(kProgram, {"--headless", "--seed", "42", "--settings", file.path()}, options);
  EXPECT_EQ(ExitCode(r), 0) << "not killed by SIGXFSZ";
  const std::string told = "cannot save the settings file " + file.path() +
                           ": file too large; your results are not counted until it can be saved";
  EXPECT_EQ(r.out, "notice: " + told + "\nTurnResult=1\n");
  EXPECT_EQ(r.err, "bramblequay: " + told + "\n") << "once, not again at exit";
  EXPECT_EQ(file.Read(), old);
  EXPECT_EQ(std::distance(fs::directory_iterator(file.dir()), {}), 1) << "no temporary left";
}

TEST(Program, CommandLinesItRefusesInOneLine) {
  const std::string odd = "--x\n\x1b[2J\xff\xc3\xa9";
  for (const std::vector<std::string>& args :
       std::vector<std::vector<std::string>>{{"--headless=0"}, {"--version=no"}, {odd}}) {
    const ChildResult r = RunChild(kProgram, args);
    EXPECT_EQ(ExitCode(r), 2) << args[0];
    EXPECT_EQ(Lines(r.err), 1u) << r.err;
    EXPECT_EQ(r.out, "");
  }
  EXPECT_EQ(RunChild(kProgram, {odd}).err,
            "bramblequay: unknown option '--x\\n\\x1b[2J\\xff\xc3\xa9' (see --help)\n");
}

TEST(Program, QtsOwnOptionsGoToQt) {
  test::TempSettings file;
  ChildOptions options;
  options.unset_env = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
  options.terminate_after = std::chrono::milliseconds(1500);
  const ChildResult r = RunChild(kProgram,
                                 {"-platform", "offscreen", "-reverse", "--style=Fusion",
                                  "-qwindowgeometry", "640x480+5+5", "--settings", file.path()},
                                 options);
  EXPECT_EQ(ExitCode(r), 0) << r.err;
  EXPECT_NE(file.Read().find("SetStackem=0"), std::string::npos) << "ran, and exited properly";
  const ChildResult help = RunChild(kProgram, {"--help"});
  for (const char* ours : {"--headless", "--settings FILE", "--seed N", "--screen-width PIXELS"})
    EXPECT_NE(help.out.find(ours), std::string::npos) << ours;
}

}  // namespace
}  // namespace bq
