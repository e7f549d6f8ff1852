#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "store/profile.h"

namespace bq {

// Results against one kind of opponent. Index 1..7 are the option rows, 8 the record run.
struct GameStats {
  std::array<int, 9> wins{};
  std::array<int, 9> losses{};
  std::array<int, 9> ties{};
  int last_winner = 0;  // 0 none, 1 player, 2 opponent, 3 tie
  int w_streak = 0;
  int l_streak = 0;
  int t_streak = 0;
  bool operator==(const GameStats&) const = default;
};

inline constexpr int kVsComputer = 1;
inline constexpr int kVsHumans = 2;
inline constexpr int kVsExpert = 3;         // ours: games against the Expert computer
using AllStats = std::array<GameStats, 4>;  // by kind; [0] unused

// The nine play settings in the file's order; 1 means on (opponent 1 means the computer).
struct StoredOptions {
  int stackem = 0;
  int backem = 0;
  int switchem = 0;
  int smackem = 0;
  int takem = 0;
  int random = 0;
  int opponent = 1;
  int fast_mode = 2;
  int learn_mode = 2;
  bool operator==(const StoredOptions&) const = default;
};

struct Settings {
  float left = 0;  // twips
  float top = 0;
  StoredOptions options;
  AllStats stats{};
  // Ours, beyond the game's 67 keys: kept in a section of its own after theirs.
  bool sound = true;                  // the click sound; only "Sound=0" turns it off
  bool ask_before_abandoning = true;  // the window's question; only "AskAbandon=0" stops it
  bool expert = false;                // the computer opponent: only "Computer=Expert" chooses it
  // The last connection set up, offered in the dialog next time: empty and 0 when none. An
  // address that is no plain host name or number, or a port outside 1..65535, reads as none.
  std::string opponent_address;
  int opponent_port = 0;
  int local_port = 0;
  bool operator==(const Settings&) const = default;
};

// The keys SaveSettings writes as (section, key), in the file's order: the game's 67, then ours.
struct SettingsKey {
  std::string_view section;
  std::string key;
};
std::vector<SettingsKey> AllSettingsKeys();

// LoadSettings and SaveSettings without the file.
Settings SettingsFromProfile(const Profile& profile);
void PutSettings(Profile& profile, const Settings& settings);

// Profile::Load, and then the settings file's own test: a file with lines but none of the game's
// four sections is somebody else's (kNotSettings), and the profile is left empty.
FileFault LoadSettingsProfile(const std::string& path, Profile& profile);

// Start-up checks on the settings file, before anything reads it: removes the temporaries that
// interrupted writes left, and makes sure PATH is missing or a regular text file of a sane size
// that is a settings file (LoadSettingsProfile); a symbolic link is not one.
// When it is not, a file the user named is refused (`refused`); the usual file is moved aside
// under a new name, never deleted, and the game starts with the defaults. `message` is the one
// line to show the player, empty when all is well.
struct SettingsFileCheck {
  bool refused = false;
  std::string message;
};
SettingsFileCheck CheckSettingsFile(const std::string& path, bool named_by_user);

// Reads all 67 keys; anything missing or unreadable takes its default, options are clamped to
// -32768..32767 and statistics to 0..32767, since no game makes them negative (the position is
// not: it may lie past 32767 twips). Never fails.
Settings LoadSettings(const std::string& path);

// Writes all 67 keys in their order, then our own sections, keeping every other line of the file.
// With Random on the five options it drew are written as 0. The file is replaced atomically. Fails,
// with the reason, when it could not be written or is no settings file (LoadSettingsProfile).
WriteResult SaveSettings(const std::string& path, const Settings& settings);

// Writes only the statistics sections (the game's two and ours), leaving everything else.
WriteResult SaveStatistics(const std::string& path, const AllStats& stats);

}  // namespace bq
