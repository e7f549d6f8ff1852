#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace bq {

// A profile ("INI") file that behaves like the Windows profile functions the game's file format
// comes from. Our own code rather than a library because those details decide what a hand-edited
// or old file turns into: keys are written in the order they are first set, lines we do not
// understand (comments, unknown keys and sections, junk) survive every write, and integers are
// read from their leading digits.
//
// Section and key names compare without regard to ASCII case. Only the first section of a name is
// looked at, and in it the first key of a name, as Windows does.
class Profile {
 public:
  // Loads PATH. A missing file is an empty profile; false (and an empty profile) when the file is
  // there but cannot be read, so that a later Write does not wipe it.
  bool Read(const std::string& path);

  // Replaces PATH with this profile by way of a temporary file in the same folder, so the file is
  // either the old one or the new one, never a mix. False when that failed; never throws.
  bool Write(const std::string& path) const;

  // The value of a key, trimmed, one pair of enclosing quotes removed; nothing when it is missing.
  std::optional<std::string> GetString(std::string_view section, std::string_view key) const;

  // As GetPrivateProfileInt: FALLBACK when the key is missing or its value empty, otherwise the
  // value's leading integer (0 when there is none).
  int GetInt(std::string_view section, std::string_view key, int fallback) const;

  // As WritePrivateProfileString: an existing key is rewritten where it stands, a new key goes
  // after the last key of its section, a new section at the end of the file.
  void SetString(std::string_view section, std::string_view key, std::string_view value);

  // What Write stores.
  std::string Text() const;

 private:
  std::vector<std::string> lines_;  // without line ends
  bool crlf_ = false;               // a file that came with CRLF keeps it
};

// Blanks, an optional sign, then decimal digits up to the first other character: "1200.5" is
// 1200, "abc" is 0. Saturates at the limits of int instead of wrapping.
int ParseProfileInt(std::string_view text);

// One-key conveniences with the Windows functions' shape; each reads the whole file.
int GetProfileInt(const std::string& path, std::string_view section, std::string_view key,
                  int fallback);
bool WriteProfileString(const std::string& path, std::string_view section, std::string_view key,
                        std::string_view value);

}  // namespace bq
