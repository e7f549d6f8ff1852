#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace bq {

// Why a file cannot serve as a profile. kNotSettings is the settings file's own test, on top of
// the profile's (see settings.h).
enum class FileFault {
  kNone,
  kUnreadable,
  kNotRegular,
  kSymlink,
  kTooLarge,
  kNotText,
  kNotSettings
};
// "is not a regular file" and the like, to follow the file's name.
const char* Describe(FileFault fault);

// What became of a write: why it failed, empty when it did not.
struct WriteResult {
  std::string error;
  explicit operator bool() const { return error.empty(); }
};

// A profile ("INI") file that behaves like the Windows profile functions the game's file format
// comes from. Our own code rather than a library because those details decide what a hand-edited
// or old file turns into: keys are written in the order they are first set, lines we do not
// understand (comments, unknown keys and sections, junk) survive every write byte for byte, line
// ends and a UTF-8 byte-order mark included, and integers are read from their leading digits.
//
// Section and key names compare without regard to ASCII case. Only the first section of a name is
// looked at, and in it the first key of a name, as Windows does.
class Profile {
 public:
  // A settings file is a few kilobytes; anything larger is not one of ours.
  static constexpr size_t kMaxSize = 1024 * 1024;

  // Loads PATH; a missing file is an empty profile. The file's type is looked at before it is
  // opened, so a FIFO or a device is never opened, and a symbolic link is not followed: a link
  // planted under the name must not get us to edit what it points to. On failure the profile is
  // empty, so that a later Write does not wipe the file.
  FileFault Load(const std::string& path);
  bool Read(const std::string& path) { return Load(path) == FileFault::kNone; }

  // Takes TEXT as the file's contents. False (and an empty profile) when it is no settings text:
  // it holds NUL bytes or is larger than kMaxSize. Text() gives TEXT back unchanged.
  bool Parse(std::string_view text);

  // Replaces PATH with this profile by way of a temporary file in the same folder, so the file is
  // either the old one or the new one, never a mix. The temporary has one fixed name, locked while
  // in use, so crashes leave at most one behind. Refuses to replace anything but a regular file,
  // and to write more than Load would read back. Fails (a full disk, a file-size limit) with the
  // reason; never throws.
  WriteResult Write(const std::string& path) const;

  // The value of a key, trimmed, one pair of enclosing quotes removed; nothing when it is missing.
  std::optional<std::string> GetString(std::string_view section, std::string_view key) const;

  // As GetPrivateProfileInt: FALLBACK when the key is missing or its value empty, otherwise the
  // value's leading integer (0 when there is none).
  int GetInt(std::string_view section, std::string_view key, int fallback) const;

  // As WritePrivateProfileString: an existing key is rewritten where it stands, a new key goes
  // after the last key of its section, a new section at the end of the file.
  void SetString(std::string_view section, std::string_view key, std::string_view value);

  // The lines without their ends, and the line that GetString reads for a key.
  size_t LineCount() const { return lines_.size(); }
  const std::string& Line(size_t i) const { return lines_[i].text; }
  std::optional<size_t> KeyLine(std::string_view section, std::string_view key) const;
  bool HasSection(std::string_view section) const;

  // What Write stores.
  std::string Text() const;

 private:
  enum class End : unsigned char { kNone, kLf, kCrLf };  // kNone: a last line without one
  struct TextLine {
    TextLine(std::string line, End line_end);
    std::string text;
    End end;
    // What the line is, worked out once: every lookup runs over the lines.
    enum class Kind : unsigned char { kOther, kSection, kKey } kind = Kind::kOther;
    size_t name_at = 0, name_size = 0;  // the section's or the key's name within `text`
    std::string_view name() const { return std::string_view(text).substr(name_at, name_size); }
  };
  std::vector<TextLine> lines_;
  bool bom_ = false;
  End new_line_ = End::kLf;  // for lines we add: the file's first line end
};

// Blanks, an optional sign, then decimal digits up to the first other character: "1200.5" is
// 1200, "abc" is 0. Saturates at the limits of int instead of wrapping.
int ParseProfileInt(std::string_view text);

// The name of Write's temporary file for PATH.
std::string TemporaryPath(const std::string& path);

// Removes the temporary files that interrupted writes of PATH left behind, also those of earlier
// versions ("PATH.tmp123-4"); one that a running write holds is left alone.
void RemoveStaleTemporaries(const std::string& path);

// One-key conveniences with the Windows functions' shape; each reads the whole file.
int GetProfileInt(const std::string& path, std::string_view section, std::string_view key,
                  int fallback);
WriteResult WriteProfileString(const std::string& path, std::string_view section,
                               std::string_view key, std::string_view value);

}  // namespace bq
