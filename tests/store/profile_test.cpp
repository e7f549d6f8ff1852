#include "store/profile.h"

#include <gtest/gtest.h>

#include "support/temp_settings.h"

#include <chrono>
#include <climits>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace bq {
namespace {

namespace fs = std::filesystem;

class ProfileTest : public ::testing::Test {
 protected:
  void WriteFile(const std::string& text) { file_.Write(text); }
  std::string ReadFile() const { return file_.Read(); }
  Profile Loaded() const {
    Profile p;
    EXPECT_TRUE(p.Read(path_));
    return p;
  }
  std::vector<std::string> DirEntries() const {
    std::vector<std::string> names;
    for (const auto& e : fs::directory_iterator(dir_))
      names.push_back(e.path().filename().string());
    return names;
  }

  test::TempSettings file_;
  const std::filesystem::path& dir_ = file_.dir();
  const std::string path_ = file_.path();
};

TEST(ParseProfileInt, ReadsLeadingIntegerOnly) {
  EXPECT_EQ(ParseProfileInt("1200"), 1200);
  EXPECT_EQ(ParseProfileInt("1200.5"), 1200);
  EXPECT_EQ(ParseProfileInt("abc"), 0);
  EXPECT_EQ(ParseProfileInt("-7"), -7);
  EXPECT_EQ(ParseProfileInt("  +42 apples"), 42);
  EXPECT_EQ(ParseProfileInt("\t-0012x"), -12);
  EXPECT_EQ(ParseProfileInt("- 7"), 0);
  EXPECT_EQ(ParseProfileInt(""), 0);
  // Saturates instead of wrapping.
  EXPECT_EQ(ParseProfileInt("99999999999999999999999"), INT_MAX);
  EXPECT_EQ(ParseProfileInt("-99999999999999999999999"), INT_MIN);
  EXPECT_EQ(ParseProfileInt("-2147483648"), INT_MIN);
}

TEST_F(ProfileTest, MissingFileSectionOrKeyGivesTheFallback) {
  EXPECT_EQ(GetProfileInt(path_, "Options", "SetOpponent", 1), 1);
  Profile empty;
  EXPECT_TRUE(empty.Read(path_)) << "a missing file is not an error";
  EXPECT_EQ(empty.Text(), "");

  WriteFile("[Options]\nSetStackem=1\nSetEmpty=\nSetBlank=   \n");
  EXPECT_EQ(GetProfileInt(path_, "Other", "SetStackem", 5), 5);
  EXPECT_EQ(GetProfileInt(path_, "Options", "SetBackem", 6), 6);
  EXPECT_EQ(GetProfileInt(path_, "Options", "SetEmpty", 7), 7);
  EXPECT_EQ(GetProfileInt(path_, "Options", "SetBlank", 8), 8);
  EXPECT_EQ(GetProfileInt(path_, "Options", "SetStackem", 9), 1);
}

TEST_F(ProfileTest, NamesIgnoreCaseAndBlanks) {
  WriteFile("  [ oPTions ]  \n  setstackem =  -3  \nSETBACKEM=\"12\"\n");
  const Profile p = Loaded();
  EXPECT_EQ(p.GetInt("Options", "SetStackem", 0), -3);
  EXPECT_EQ(p.GetInt("OPTIONS", "SetBackem", 0), 12) << "enclosing quotes are not part of it";
  EXPECT_EQ(p.GetString("options", "setstackem"), "-3");
}

TEST_F(ProfileTest, OnlyRealKeysOfTheFirstSectionCount) {
  WriteFile(
      "Stray=1\n"
      "[A]\n"
      ";Commented=2\n"
      "Value without equals\n"
      "Dup=3\n"
      "Dup=4\n"
      "[B]\n"
      "Only=5\n"
      "[a]\n"
      "Later=6\n"
      "Dup=7\n");
  const Profile p = Loaded();
  EXPECT_EQ(p.GetInt("", "Stray", -1), -1) << "a key before any section belongs to none";
  EXPECT_EQ(p.GetInt("A", "Commented", -1), -1);
  EXPECT_EQ(p.GetInt("A", ";Commented", -1), -1);
  EXPECT_EQ(p.GetInt("A", "Dup", -1), 3);
  EXPECT_EQ(p.GetInt("A", "Only", -1), -1) << "keys of another section";
  EXPECT_EQ(p.GetInt("A", "Later", -1), -1) << "a repeated section is not looked at";
}

TEST_F(ProfileTest, SettingKeysKeepsEveryOtherLine) {
  WriteFile(
      "; written by hand\n"
      "[Options]\n"
      "SetStackem=1\n"
      "mystery line\n"
      "Unknown=abc\n"
      "\n"
      "[Extra]\n"
      "Keep=me\n");
  Profile p = Loaded();
  p.SetString("options", "SETSTACKEM", "0");  // in place, not a second copy
  p.SetString("Options", "SetBackem", "1");   // after the section's last key
  p.SetString("NewSection", "Key", "v");      // at the end of the file
  p.SetString("Extra", "Added", "2");
  ASSERT_TRUE(p.Write(path_));
  EXPECT_EQ(ReadFile(),
            "; written by hand\n"
            "[Options]\n"
            "SETSTACKEM=0\n"
            "mystery line\n"
            "Unknown=abc\n"
            "SetBackem=1\n"
            "\n"
            "[Extra]\n"
            "Keep=me\n"
            "Added=2\n"
            "[NewSection]\n"
            "Key=v\n");
}

TEST_F(ProfileTest, NewKeyOfAnEmptySectionFollowsItsHeader) {
  WriteFile("[Empty]\n\n[Next]\nX=1\n");
  Profile p = Loaded();
  p.SetString("Empty", "K", "1");
  EXPECT_EQ(p.Text(), "[Empty]\nK=1\n\n[Next]\nX=1\n");
}

TEST_F(ProfileTest, CrlfFileStaysCrlf) {
  WriteFile("[Options]\r\nSetStackem=1\r\n");
  Profile p = Loaded();
  EXPECT_EQ(p.GetInt("Options", "SetStackem", 0), 1);
  p.SetString("Options", "SetBackem", "2");
  EXPECT_EQ(p.Text(), "[Options]\r\nSetStackem=1\r\nSetBackem=2\r\n");
}

TEST_F(ProfileTest, BinaryJunkReadsAsNothingAndSurvivesAWrite) {
  std::string junk;
  for (int i = 0; i < 2000; ++i) junk += static_cast<char>((i * 37 + 11) % 256);
  junk += std::string("\0[=]\0\n=\n[\n]\n", 12);
  WriteFile(junk);
  Profile p = Loaded();
  EXPECT_EQ(p.GetInt("Options", "SetStackem", 42), 42);
  p.SetString("Options", "SetStackem", "1");
  ASSERT_TRUE(p.Write(path_));
  const std::string text = ReadFile();
  EXPECT_NE(text.find(std::string("\0[=]\0", 5)), std::string::npos);
  EXPECT_EQ(GetProfileInt(path_, "Options", "SetStackem", 0), 1);
}

TEST_F(ProfileTest, WriteReplacesTheFileAndLeavesNoTemporary) {
  WriteFile("[A]\nX=1\n");
  ASSERT_TRUE(WriteProfileString(path_, "A", "X", "2"));
  ASSERT_TRUE(WriteProfileString(path_, "A", "Y", "3"));
  EXPECT_EQ(ReadFile(), "[A]\nX=2\nY=3\n");
  EXPECT_EQ(DirEntries(), std::vector<std::string>{"Bramblequay.INI"});
}

TEST_F(ProfileTest, WriteFollowsALinkInsteadOfReplacingIt) {
  const fs::path real = dir_ / "real.ini";
  std::ofstream(real) << "[A]\nX=1\n";
  std::error_code ec;
  fs::remove(path_);
  fs::create_symlink(real, path_, ec);
  if (ec) GTEST_SKIP() << "no symbolic links here";
  ASSERT_TRUE(WriteProfileString(path_, "A", "X", "2"));
  EXPECT_TRUE(fs::is_symlink(path_));
  EXPECT_EQ(GetProfileInt(real.string(), "A", "X", 0), 2);
}

TEST_F(ProfileTest, UnwritablePlacesFailWithoutDamage) {
  // A folder that is really a file refuses even a privileged user.
  const fs::path blocker = dir_ / "not_a_folder";
  std::ofstream(blocker) << "x";
  EXPECT_FALSE(WriteProfileString((blocker / "Bramblequay.INI").string(), "A", "X", "1"));
  EXPECT_FALSE(WriteProfileString((dir_ / "missing" / "x.ini").string(), "A", "X", "1"));

  // The name is taken by a folder: it can be neither read nor replaced.
  fs::create_directory(path_);
  std::ofstream(fs::path(path_) / "inside") << "keep";
  Profile p;
  EXPECT_FALSE(p.Read(path_));
  EXPECT_FALSE(WriteProfileString(path_, "A", "X", "1"));
  p.SetString("A", "X", "1");
  EXPECT_FALSE(p.Write(path_)) << "the final rename must fail";
  EXPECT_TRUE(fs::is_directory(path_));
  EXPECT_EQ(DirEntries().size(), 2u) << "no temporary file left behind";
}

}  // namespace
}  // namespace bq
