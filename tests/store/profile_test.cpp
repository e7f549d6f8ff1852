#include "store/profile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

#include "support/temp_settings.h"

namespace bq {
namespace {

namespace fs = std::filesystem;

Profile Loaded(const test::TempSettings& file) {
  Profile p;
  EXPECT_TRUE(p.Read(file.path()));
  return p;
}

TEST(ParseProfileInt, LeadingIntegerSaturating) {
  const std::pair<const char*, int> cases[] = {{"1200.5", 1200},     {"abc", 0}, {"-7", -7},
                                               {"  +42 apples", 42}, {"- 7", 0}, {"", 0}};
  for (const auto& [text, value] : cases) EXPECT_EQ(ParseProfileInt(text), value) << text;
  EXPECT_EQ(ParseProfileInt("99999999999999999999"), INT_MAX) << "saturates, never wraps";
  EXPECT_EQ(ParseProfileInt("-99999999999999999999"), INT_MIN);
}

TEST(Profile, LookupRules) {
  test::TempSettings file;
  file.Write(
      "  [ oPTions ]  \n setstackem =  -3  \nSETBACKEM=\"12\"\nEmpty=\n;Note=2\n"
      "Dup=3\nDup=4\n[B]\nOnly=5\n[options]\nLater=6\n");
  const Profile p = Loaded(file);
  EXPECT_EQ(p.GetInt("Options", "SetStackem", 0), -3);
  EXPECT_EQ(p.GetString("OPTIONS", "SetBackem"), "12") << "enclosing quotes dropped";
  EXPECT_EQ(p.GetInt("Options", "Empty", 7), 7) << "an empty value takes the fallback";
  EXPECT_EQ(p.GetInt("Options", "Missing", 8), 8);
  EXPECT_EQ(p.GetInt("Options", ";Note", -1), -1) << "a comment is no key";
  EXPECT_EQ(p.GetInt("Options", "Dup", -1), 3) << "the first key of a name counts";
  EXPECT_EQ(p.GetInt("Options", "Only", -1), -1) << "another section's key";
  EXPECT_EQ(p.GetInt("Options", "Later", -1), -1) << "a repeated section is not looked at";
}

TEST(Profile, SettingKeysKeepsEveryOtherLine) {
  test::TempSettings file;
  file.Write("; by hand\n[Options]\nSetStackem=1\nmystery\n\n[Empty]\n\n[Extra]\nKeep=me\n");
  Profile p = Loaded(file);
  p.SetString("options", "SETSTACKEM", "0");  // in place, not a second copy
  p.SetString("Options", "SetBackem", "1");   // after the section's last key
  p.SetString("Empty", "K", "2");             // right after a bare header
  p.SetString("New", "Key", "v");             // a new section at the end
  ASSERT_TRUE(p.Write(file.path()));
  EXPECT_EQ(file.Read(),
            "; by hand\n[Options]\nSETSTACKEM=0\nSetBackem=1\nmystery\n\n[Empty]\nK=2\n\n"
            "[Extra]\nKeep=me\n[New]\nKey=v\n");

  file.Write("[Options]\r\nSetStackem=1\r\n");
  p = Loaded(file);
  p.SetString("Options", "SetBackem", "2");
  EXPECT_EQ(p.Text(), "[Options]\r\nSetStackem=1\r\nSetBackem=2\r\n") << "CRLF stays CRLF";
}

TEST(Profile, LineEndsAndAByteOrderMarkSurviveAWrite) {
  const std::string bom = "\xEF\xBB\xBF";
  const std::string text = bom + "[WindowPosition]\nLeft=5\r\n;odd\rline\n[Options]\nSetStackem=1";
  Profile p;
  ASSERT_TRUE(p.Parse(text));
  EXPECT_EQ(p.Text(), text) << "unchanged, byte for byte";
  EXPECT_EQ(p.GetInt("WindowPosition", "Left", -1), 5) << "read through the mark";
  p.SetString("WindowPosition", "Left", "7");
  p.SetString("Options", "SetBackem", "2");
  EXPECT_EQ(p.Text(), bom +
                          "[WindowPosition]\nLeft=7\r\n;odd\rline\n[Options]\nSetStackem=1\n"
                          "SetBackem=2\n")
      << "no second [WindowPosition]; each line keeps its end";
}

TEST(Profile, OnlyRegularTextFilesOfASaneSizeAreRead) {
  test::TempSettings file;
  const auto fault = [](const std::string& path) { return Profile().Load(path); };
  EXPECT_EQ(fault(file.path()), FileFault::kNone) << "missing is an empty profile";
  file.Write(std::string("[A]\nX=1\n\0", 9));
  EXPECT_EQ(fault(file.path()), FileFault::kNotText);
  file.Write(std::string(Profile::kMaxSize + 1, 'x'));
  EXPECT_EQ(fault(file.path()), FileFault::kTooLarge);
  EXPECT_EQ(fault("/dev/zero"), FileFault::kNotRegular);
  EXPECT_EQ(fault(file.dir().string()), FileFault::kNotRegular);
  const fs::path fifo = file.dir() / "fifo";
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  EXPECT_EQ(fault(fifo.string()), FileFault::kNotRegular) << "and it did not hang";
  Profile p;
  p.SetString("A", "X", "1");
  EXPECT_FALSE(p.Write(fifo.string())) << "never replaced";
  EXPECT_TRUE(fs::is_fifo(fifo));
}

TEST(Profile, TemporariesThatCrashesLeftAreRemovedUnlessAWriteHoldsThem) {
  test::TempSettings file;
  const std::string temp = TemporaryPath(file.path());
  for (const std::string& name :
       {temp, file.path() + ".tmp123-4", file.path() + ".tmpx-4", file.path() + ".bak"})
    std::ofstream(name) << "left";
  RemoveStaleTemporaries(file.path());
  EXPECT_FALSE(fs::exists(temp));
  EXPECT_FALSE(fs::exists(file.path() + ".tmp123-4"));
  EXPECT_TRUE(fs::exists(file.path() + ".tmpx-4")) << "not a name we ever used";
  EXPECT_TRUE(fs::exists(file.path() + ".bak"));

  // A temporary left by a crash is simply reused by the next write.
  std::ofstream(temp) << "a much longer text than the profile";
  ASSERT_TRUE(WriteProfileString(file.path(), "A", "X", "1"));
  EXPECT_EQ(file.Read(), "[A]\nX=1\n");
  EXPECT_FALSE(fs::exists(temp));

  std::ofstream(temp) << "busy";
  const int fd = ::open(temp.c_str(), O_RDONLY);
  ASSERT_EQ(::flock(fd, LOCK_EX), 0);
  RemoveStaleTemporaries(file.path());
  EXPECT_TRUE(fs::exists(temp)) << "another copy is writing it";
  ::close(fd);
}

TEST(Profile, WriteReplacesAtomicallyOrFailsWithoutDamage) {
  test::TempSettings file;
  const fs::path real = file.dir() / "real.ini";
  std::ofstream(real) << "[A]\nX=1\n";
  ASSERT_TRUE(WriteProfileString(real.string(), "A", "Y", "3"));
  EXPECT_EQ(std::distance(fs::directory_iterator(file.dir()), {}), 1) << "no temporary left";
  // A link planted under the name: what it points to is neither read nor written.
  fs::create_symlink(real, file.path());
  EXPECT_EQ(Profile().Load(file.path()), FileFault::kSymlink);
  Profile through;
  through.SetString("A", "X", "2");
  EXPECT_EQ(through.Write(file.path()).error, "it is a symbolic link");
  EXPECT_EQ(WriteProfileString(file.path(), "A", "X", "2").error, "it is a symbolic link");
  EXPECT_TRUE(fs::is_symlink(file.path()));
  EXPECT_EQ(file.Read(), "[A]\nX=1\nY=3\n");
  fs::remove(file.path());

  EXPECT_FALSE(WriteProfileString((real / "x.ini").string(), "A", "X", "1"));
  // A folder under the name can be neither read nor replaced.
  fs::create_directory(file.path());
  std::ofstream(fs::path(file.path()) / "inside") << "keep";
  Profile p;
  EXPECT_FALSE(p.Read(file.path()));
  p.SetString("A", "X", "1");
  EXPECT_EQ(p.Write(file.path()).error, "it is not a regular file");
  EXPECT_TRUE(fs::exists(fs::path(file.path()) / "inside"));
  EXPECT_EQ(std::distance(fs::directory_iterator(file.dir()), {}), 2) << "no temporary left";
}

}  // namespace
}  // namespace bq
