#include "store/profile.h"

#include <chrono>
#include <climits>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#if __has_include(<unistd.h>)
#include <unistd.h>
#endif

namespace bq {
namespace {

namespace fs = std::filesystem;

// A settings file is a few kilobytes; anything far larger is not ours, and reading it (think of a
// device given as --settings) could take forever.
constexpr std::uintmax_t kMaxFileSize = 16 * 1024 * 1024;

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f';
}

std::string_view Trim(std::string_view s) {
  while (!s.empty() && IsBlank(s.front())) s.remove_prefix(1);
  while (!s.empty() && IsBlank(s.back())) s.remove_suffix(1);
  return s;
}

char FoldCase(char c) {
  return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

bool SameName(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i)
    if (FoldCase(a[i]) != FoldCase(b[i])) return false;
  return true;
}

// "[Name]" gives Name; anything else is not a section header.
std::optional<std::string_view> SectionName(std::string_view line) {
  line = Trim(line);
  if (line.empty() || line.front() != '[') return std::nullopt;
  const size_t close = line.rfind(']');
  if (close == std::string_view::npos || close == 0) return std::nullopt;
  return Trim(line.substr(1, close - 1));
}

struct KeyLine {
  std::string_view key;
  std::string_view value;
};

std::optional<KeyLine> ParseKeyLine(std::string_view line) {
  const std::string_view t = Trim(line);
  if (t.empty() || t.front() == ';' || t.front() == '[') return std::nullopt;
  const size_t eq = t.find('=');
  if (eq == std::string_view::npos) return std::nullopt;
  const std::string_view key = Trim(t.substr(0, eq));
  if (key.empty()) return std::nullopt;
  return KeyLine{key, Trim(t.substr(eq + 1))};
}

// Where a key lives: the header of its section and, when present, its own line.
struct Location {
  std::optional<size_t> header;
  std::optional<size_t> key;
  size_t insert_at = 0;  // where a new key of the section goes
};

Location Locate(const std::vector<std::string>& lines, std::string_view section,
                std::string_view key) {
  Location loc;
  size_t i = 0;
  for (; i < lines.size(); ++i) {
    const auto name = SectionName(lines[i]);
    if (name && SameName(*name, section)) break;
  }
  if (i == lines.size()) return loc;
  loc.header = i;
  loc.insert_at = i + 1;
  for (++i; i < lines.size() && !SectionName(lines[i]); ++i) {
    const auto kl = ParseKeyLine(lines[i]);
    if (!kl) continue;
    if (!loc.key && SameName(kl->key, key)) loc.key = i;
    loc.insert_at = i + 1;
  }
  return loc;
}

std::string UniqueSuffix() {
  static unsigned counter = 0;
  const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
  std::string suffix = ".tmp";
  suffix += std::to_string(static_cast<unsigned long long>(now) % 1000000007ULL);
  suffix += '-';
  suffix += std::to_string(++counter);
  return suffix;
}

bool WriteAll(std::FILE* f, const std::string& text) {
  bool ok = std::fwrite(text.data(), 1, text.size(), f) == text.size();
  ok = std::fflush(f) == 0 && ok;
#if __has_include(<unistd.h>)
  // Without this a power cut shortly after the rename can leave an empty file on some systems.
  ok = ::fsync(::fileno(f)) == 0 && ok;
#endif
  return ok;
}

}  // namespace

int ParseProfileInt(std::string_view text) {
  size_t i = 0;
  while (i < text.size() && IsBlank(text[i])) ++i;
  bool negative = false;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) negative = text[i++] == '-';
  long long value = 0;
  for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i) {
    value = value * 10 + (text[i] - '0');
    if (value > static_cast<long long>(INT_MAX) + 1) value = static_cast<long long>(INT_MAX) + 1;
  }
  if (negative) value = -value;
  if (value > INT_MAX) return INT_MAX;
  return static_cast<int>(value);
}

bool Profile::Read(const std::string& path) {
  lines_.clear();
  crlf_ = false;
  std::error_code ec;
  const auto status = fs::status(path, ec);
  if (status.type() == fs::file_type::not_found) return true;
  if (ec || fs::is_directory(status)) return false;
  if (fs::is_regular_file(status) && fs::file_size(path, ec) > kMaxFileSize) return false;

  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  std::string text;
  char buf[4096];
  while (in.read(buf, sizeof buf) || in.gcount() > 0) {
    text.append(buf, static_cast<size_t>(in.gcount()));
    if (text.size() > kMaxFileSize) return false;
  }
  if (in.bad()) return false;

  size_t start = 0;
  while (start < text.size()) {
    size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    std::string line = text.substr(start, end - start);
    if (!line.empty() && line.back() == '\r') {
      line.pop_back();
      if (lines_.empty()) crlf_ = true;
    }
    lines_.push_back(std::move(line));
    start = end + 1;
  }
  return true;
}

bool Profile::Write(const std::string& path) const {
  try {
    fs::path target = path;
    std::error_code ec;
    // Replace what a link points to, not the link.
    if (fs::is_symlink(target, ec)) {
      fs::path resolved = fs::canonical(target, ec);
      if (!ec) target = resolved;
    }
    const std::string text = Text();

    fs::path temp;
    std::FILE* f = nullptr;
    for (int attempt = 0; attempt < 20 && !f; ++attempt) {
      temp = target;
      temp += UniqueSuffix();
      // "x": never write into a file that someone else created under the same name.
      f = std::fopen(temp.string().c_str(), "wbx");
      if (!f && !fs::exists(temp, ec)) return false;  // the folder itself refuses
    }
    if (!f) return false;

    bool ok = WriteAll(f, text);
    ok = std::fclose(f) == 0 && ok;
    if (ok) {
      const auto old = fs::status(target, ec);
      if (!ec && fs::exists(old)) fs::permissions(temp, old.permissions(), ec);
      fs::rename(temp, target, ec);
      ok = !ec;
    }
    if (!ok) fs::remove(temp, ec);
    return ok;
  } catch (...) {
    return false;
  }
}

std::optional<std::string> Profile::GetString(std::string_view section,
                                              std::string_view key) const {
  const Location loc = Locate(lines_, section, key);
  if (!loc.key) return std::nullopt;
  std::string_view value = ParseKeyLine(lines_[*loc.key])->value;
  if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
      value.back() == value.front())
    value = value.substr(1, value.size() - 2);
  return std::string(value);
}

int Profile::GetInt(std::string_view section, std::string_view key, int fallback) const {
  const auto value = GetString(section, key);
  if (!value || value->empty()) return fallback;
  return ParseProfileInt(*value);
}

void Profile::SetString(std::string_view section, std::string_view key, std::string_view value) {
  std::string line(key);
  line += '=';
  line += value;
  const Location loc = Locate(lines_, section, key);
  if (loc.key) {
    lines_[*loc.key] = std::move(line);
  } else if (loc.header) {
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(loc.insert_at), std::move(line));
  } else {
    std::string header = "[";
    header += section;
    header += ']';
    lines_.push_back(std::move(header));
    lines_.push_back(std::move(line));
  }
}

std::string Profile::Text() const {
  std::string text;
  for (const auto& line : lines_) {
    text += line;
    if (crlf_) text += '\r';
    text += '\n';
  }
  return text;
}

int GetProfileInt(const std::string& path, std::string_view section, std::string_view key,
                  int fallback) {
  Profile profile;
  profile.Read(path);
  return profile.GetInt(section, key, fallback);
}

bool WriteProfileString(const std::string& path, std::string_view section, std::string_view key,
                        std::string_view value) {
  Profile profile;
  if (!profile.Read(path)) return false;
  profile.SetString(section, key, value);
  return profile.Write(path);
}

}  // namespace bq
