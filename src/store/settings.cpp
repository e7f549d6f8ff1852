#include "store/settings.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <string_view>
#include <utility>

#include "store/profile.h"

namespace bq {
namespace {

constexpr std::string_view kPosition = "WindowPosition";
constexpr std::string_view kOptions = "Options";
constexpr std::string_view kPreferences = "Preferences";
constexpr std::array<std::string_view, 4> kStatsSections = {"", "StatsVsComputer", "StatsVsHumans",
                                                            "StatsVsExpert"};

constexpr std::array<std::pair<std::string_view, int StoredOptions::*>, 9> kOptionKeys = {{
    {"SetStackem", &StoredOptions::stackem},
    {"SetBackem", &StoredOptions::backem},
    {"SetSwitchem", &StoredOptions::switchem},
    {"SetSmackem", &StoredOptions::smackem},
    {"SetTakem", &StoredOptions::takem},
    {"SetRandom", &StoredOptions::random},
    {"SetOpponent", &StoredOptions::opponent},
    {"SetFastMode", &StoredOptions::fast_mode},
    {"SetLearnMode", &StoredOptions::learn_mode},
}};

// The 28 keys of a statistics section with their fields, in the file's order.
template <typename Stats, typename Visit>
void ForEachStat(Stats& stats, Visit visit) {
  for (size_t i = 1; i <= 8; ++i) visit("Wins" + std::to_string(i), stats.wins[i]);
  for (size_t i = 1; i <= 8; ++i) visit("Losses" + std::to_string(i), stats.losses[i]);
  for (size_t i = 1; i <= 8; ++i) visit("Ties" + std::to_string(i), stats.ties[i]);
  visit("LastWinner", stats.last_winner);
  visit("WStreak", stats.w_streak);
  visit("LStreak", stats.l_streak);
  visit("TStreak", stats.t_streak);
}

// Counters and options are 16-bit wide in the game; a hand-edited giant is taken as the limit.
int ReadShort(const Profile& profile, std::string_view section, std::string_view key, int fallback,
              int lowest = -32768) {
  return std::clamp(profile.GetInt(section, key, fallback), lowest, 32767);
}

constexpr std::array<std::string_view, 4> kGameSections = {kPosition, kOptions, kStatsSections[1],
                                                           kStatsSections[2]};

bool HasContent(const Profile& profile) {
  for (size_t i = 0; i < profile.LineCount(); ++i)
    if (profile.Line(i).find_first_not_of(" \t\r\v\f") != std::string::npos) return true;
  return false;
}

WriteResult LoadFailure(FileFault fault) {
  return {std::string("it ") + Describe(fault)};
}

int ReadPort(const Profile& profile, std::string_view key) {
  const int port = profile.GetInt(kPreferences, key, 0);
  return port >= 1 && port <= 65535 ? port : 0;
}

// "1200", or "1200.5" when there is a fraction: never an exponent, which would read back as 1.
std::string PositionText(float twips) {
  if (!std::isfinite(twips) || twips == 0) return "0";
  char buf[64];
  const auto result = std::to_chars(buf, buf + sizeof buf, twips, std::chars_format::fixed);
  if (result.ec != std::errc()) return "0";
  return std::string(buf, result.ptr);
}

void PutStatistics(Profile& profile, const AllStats& stats, int kind) {
  ForEachStat(stats[static_cast<size_t>(kind)], [&](const std::string& key, int value) {
    profile.SetString(kStatsSections[static_cast<size_t>(kind)], key, std::to_string(value));
  });
}

// Anything but the Expert's name, in any case, is the Classic computer.
bool IsExpert(std::string_view name) {
  constexpr std::string_view kExpert = "expert";
  return name.size() == kExpert.size() &&
         std::equal(name.begin(), name.end(), kExpert.begin(), [](char a, char b) {
           return std::tolower(static_cast<unsigned char>(a)) == b;
         });
}

}  // namespace

std::vector<SettingsKey> AllSettingsKeys() {
  std::vector<SettingsKey> keys = {{kPosition, "Left"}, {kPosition, "Top"}};
  for (const auto& [key, field] : kOptionKeys) keys.push_back({kOptions, std::string(key)});
  const auto stats_keys = [&](int kind) {
    const GameStats none;
    ForEachStat(none, [&](const std::string& key, int) {
      keys.push_back({kStatsSections[static_cast<size_t>(kind)], key});
    });
  };
  stats_keys(kVsComputer);
  stats_keys(kVsHumans);
  for (const char* key :
       {"Sound", "AskAbandon", "OpponentAddress", "OpponentPort", "LocalPort", "Computer"})
    keys.push_back({kPreferences, key});
  stats_keys(kVsExpert);
  return keys;
}

FileFault LoadSettingsProfile(const std::string& path, Profile& profile) {
  const FileFault fault = profile.Load(path);
  if (fault != FileFault::kNone || !HasContent(profile)) return fault;
  for (std::string_view section : kGameSections)
    if (profile.HasSection(section)) return FileFault::kNone;
  profile = Profile();
  return FileFault::kNotSettings;
}

Settings LoadSettings(const std::string& path) {
  Profile profile;
  LoadSettingsProfile(path, profile);  // an unreadable file reads like a missing one
  return SettingsFromProfile(profile);
}

Settings SettingsFromProfile(const Profile& profile) {
  Settings settings;
  // The position is a float in twips, not a 16-bit counter: large screens go past 32767.
  settings.left = static_cast<float>(profile.GetInt(kPosition, "Left", 0));
  settings.top = static_cast<float>(profile.GetInt(kPosition, "Top", 0));
  for (const auto& [key, field] : kOptionKeys)
    settings.options.*field = ReadShort(profile, kOptions, key, settings.options.*field);
  for (int kind : {kVsComputer, kVsHumans, kVsExpert}) {
    ForEachStat(settings.stats[static_cast<size_t>(kind)], [&](const std::string& key, int& value) {
      value = ReadShort(profile, kStatsSections[static_cast<size_t>(kind)], key, 0, 0);
    });
  }
  settings.sound = profile.GetInt(kPreferences, "Sound", 1) != 0;
  settings.ask_before_abandoning = profile.GetInt(kPreferences, "AskAbandon", 1) != 0;
  const std::string address = profile.GetString(kPreferences, "OpponentAddress").value_or("");
  // Only what a player could have typed into the box comes back into it.
  if (address.size() <= 255 &&
      std::all_of(address.begin(), address.end(), [](char c) { return c > ' ' && c < 127; }))
    settings.opponent_address = address;
  settings.opponent_port = ReadPort(profile, "OpponentPort");
  settings.local_port = ReadPort(profile, "LocalPort");
  settings.expert = IsExpert(profile.GetString(kPreferences, "Computer").value_or(""));
  return settings;
}

WriteResult SaveSettings(const std::string& path, const Settings& settings) {
  Profile profile;
  if (const FileFault fault = LoadSettingsProfile(path, profile); fault != FileFault::kNone)
    return LoadFailure(fault);
  PutSettings(profile, settings);
  return profile.Write(path);
}

void PutSettings(Profile& profile, const Settings& settings) {
  profile.SetString(kPosition, "Left", PositionText(settings.left));
  profile.SetString(kPosition, "Top", PositionText(settings.top));
  // Options that Random drew are never remembered, only that Random is on.
  StoredOptions options = settings.options;
  if (options.random == 1)
    options.stackem = options.backem = options.switchem = options.smackem = options.takem = 0;
  for (const auto& [key, field] : kOptionKeys)
    profile.SetString(kOptions, key, std::to_string(options.*field));
  PutStatistics(profile, settings.stats, kVsComputer);
  PutStatistics(profile, settings.stats, kVsHumans);
  profile.SetString(kPreferences, "Sound", settings.sound ? "1" : "0");
  profile.SetString(kPreferences, "AskAbandon", settings.ask_before_abandoning ? "1" : "0");
  profile.SetString(kPreferences, "OpponentAddress", settings.opponent_address);
  profile.SetString(kPreferences, "OpponentPort", std::to_string(settings.opponent_port));
  profile.SetString(kPreferences, "LocalPort", std::to_string(settings.local_port));
  profile.SetString(kPreferences, "Computer", settings.expert ? "Expert" : "Classic");
  PutStatistics(profile, settings.stats, kVsExpert);
}

WriteResult SaveStatistics(const std::string& path, const AllStats& stats) {
  Profile profile;
  if (const FileFault fault = LoadSettingsProfile(path, profile); fault != FileFault::kNone)
    return LoadFailure(fault);
  for (int kind : {kVsComputer, kVsHumans, kVsExpert}) PutStatistics(profile, stats, kind);
  return profile.Write(path);
}

SettingsFileCheck CheckSettingsFile(const std::string& path, bool named_by_user) {
  namespace fs = std::filesystem;
  RemoveStaleTemporaries(path);
  Profile profile;
  const FileFault fault = LoadSettingsProfile(path, profile);
  if (fault == FileFault::kNone) return {};
  const std::string why = Describe(fault);
  if (named_by_user) return {true, "the settings file " + path + " " + why};
  // Unreadable is no sign of damage (permissions, say): it stays where it is, and saving warns.
  if (fault == FileFault::kUnreadable) return {};
  std::error_code ec;
  std::string aside = path + ".damaged";
  for (int n = 2; fs::exists(fs::symlink_status(aside, ec)) && n < 1000; ++n)
    aside = path + ".damaged-" + std::to_string(n);
  // Never onto an earlier damaged file: that one is kept too.
  if (fs::exists(fs::symlink_status(aside, ec)))
    ec = std::make_error_code(std::errc::file_exists);
  else
    fs::rename(path, aside, ec);
  if (ec)
    return {false, "the settings file " + path + " " + why +
                       " and cannot be moved aside; the game starts with the default settings"};
  return {false, "the settings file " + path + " " + why + "; it is kept as " + aside +
                     " and the game starts with the default settings"};
}

}  // namespace bq
