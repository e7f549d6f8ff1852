#include "store/profile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstring>
#include <filesystem>

namespace bq {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

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

template <typename Lines>
Location Locate(const Lines& lines, std::string_view section, std::string_view key) {
  using Kind = typename Lines::value_type::Kind;
  Location loc;
  size_t i = 0;
  while (i < lines.size() &&
         !(lines[i].kind == Kind::kSection && SameName(lines[i].name(), section)))
    ++i;
  if (i == lines.size()) return loc;
  loc.header = i;
  loc.insert_at = i + 1;
  for (++i; i < lines.size() && lines[i].kind != Kind::kSection; ++i) {
    if (lines[i].kind != Kind::kKey) continue;
    if (!loc.key && SameName(lines[i].name(), key)) loc.key = i;
    loc.insert_at = i + 1;
  }
  return loc;
}

// A descriptor closed on every way out.
class Fd {
 public:
  explicit Fd(int fd) : fd_(fd) {}
  ~Fd() {
    if (fd_ >= 0) ::close(fd_);
  }
  Fd(const Fd&) = delete;
  Fd& operator=(const Fd&) = delete;
  int get() const { return fd_; }
  bool Close() {
    const int fd = fd_;
    fd_ = -1;
    return ::close(fd) == 0;
  }

 private:
  int fd_;
};

bool SameFile(int fd, const std::string& path) {
  struct stat open_stat, path_stat;
  return ::fstat(fd, &open_stat) == 0 && S_ISREG(open_stat.st_mode) &&
         ::lstat(path.c_str(), &path_stat) == 0 && open_stat.st_dev == path_stat.st_dev &&
         open_stat.st_ino == path_stat.st_ino;
}

// Opens the temporary file and takes its lock. Another copy of the program may be writing it, or
// may have just renamed it onto the settings file; so we lock, then check that the name still
// leads to what we locked. Without WAIT, only an existing file that nobody holds is taken. Never
// blocks on a FIFO.
int OpenLockedTemporary(const std::string& temp, bool wait) {
  for (int attempt = 0; attempt < 100; ++attempt) {
    const int create = wait ? O_CREAT : 0;
    const int fd =
        ::open(temp.c_str(), O_WRONLY | create | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0666);
    if (fd < 0) return -1;
    int locked;
    do {
      locked = ::flock(fd, LOCK_EX | (wait ? 0 : LOCK_NB));
    } while (locked != 0 && errno == EINTR);
    if (locked == 0 && SameFile(fd, temp)) return fd;
    ::close(fd);
    if (locked != 0) return -1;
  }
  return -1;
}

bool WriteAll(int fd, std::string_view text) {
  while (!text.empty()) {
    const ssize_t n = ::write(fd, text.data(), text.size());
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;  // EFBIG under a file-size limit, ENOSPC, ...
    text.remove_prefix(static_cast<size_t>(n));
  }
  // Without this a power cut shortly after the rename can leave an empty file on some systems.
  return ::fsync(fd) == 0;
}

// Names that Write of earlier versions gave its temporaries: the target, ".tmp", digits, "-",
// digits.
bool IsOldTemporaryName(std::string_view name, std::string_view target) {
  if (name.substr(0, target.size()) != target) return false;
  name.remove_prefix(target.size());
  if (name.substr(0, 4) != ".tmp") return false;
  name.remove_prefix(4);
  const size_t dash = name.find('-');
  if (dash == 0 || dash == std::string_view::npos || dash + 1 == name.size()) return false;
  for (size_t i = 0; i < name.size(); ++i)
    if (i != dash && (name[i] < '0' || name[i] > '9')) return false;
  return true;
}

// "no space left on device": the system's words, to follow a colon.
std::string ErrnoText() {
  if (errno == 0) return "the write failed";
  std::string text = std::strerror(errno);
  if (!text.empty() && text[0] >= 'A' && text[0] <= 'Z')
    text[0] = static_cast<char>(text[0] - 'A' + 'a');
  return text;
}

}  // namespace

Profile::TextLine::TextLine(std::string line, End line_end) : text(std::move(line)), end(line_end) {
  std::string_view name;
  if (const auto section = SectionName(text)) {
    kind = Kind::kSection;
    name = *section;
  } else if (const auto key = ParseKeyLine(text)) {
    kind = Kind::kKey;
    name = key->key;
  } else {
    return;
  }
  name_at = static_cast<size_t>(name.data() - text.data());
  name_size = name.size();
}

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

const char* Describe(FileFault fault) {
  switch (fault) {
    case FileFault::kNone:
      break;
    case FileFault::kUnreadable:
      return "cannot be read";
    case FileFault::kNotRegular:
      return "is not a regular file";
    case FileFault::kSymlink:
      return "is a symbolic link";
    case FileFault::kTooLarge:
      return "is larger than 1 MiB";
    case FileFault::kNotText:
      return "holds NUL bytes, so it is no settings file";
    case FileFault::kNotSettings:
      return "has none of the sections [WindowPosition], [Options], [StatsVsComputer] and "
             "[StatsVsHumans], so it is no settings file";
  }
  return "";
}

FileFault Profile::Load(const std::string& path) {
  lines_.clear();
  bom_ = false;
  new_line_ = End::kLf;
  struct stat st;
  if (::lstat(path.c_str(), &st) != 0)
    return errno == ENOENT ? FileFault::kNone : FileFault::kUnreadable;
  if (S_ISLNK(st.st_mode)) return FileFault::kSymlink;
  if (!S_ISREG(st.st_mode)) return FileFault::kNotRegular;
  if (static_cast<unsigned long long>(st.st_size) > kMaxSize) return FileFault::kTooLarge;

  // Non-blocking, and checked again once open: the name may have changed hands since.
  Fd fd(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW));
  if (fd.get() < 0)
    return errno == ENOENT  ? FileFault::kNone
           : errno == ELOOP ? FileFault::kSymlink
                            : FileFault::kUnreadable;
  if (::fstat(fd.get(), &st) != 0 || !S_ISREG(st.st_mode)) return FileFault::kNotRegular;
  std::string text;
  char buf[16384];
  for (;;) {
    const ssize_t n = ::read(fd.get(), buf, sizeof buf);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) return FileFault::kUnreadable;
    if (n == 0) break;
    text.append(buf, static_cast<size_t>(n));
    if (text.size() > kMaxSize) return FileFault::kTooLarge;  // it grew while we read
  }
  return Parse(text) ? FileFault::kNone : FileFault::kNotText;
}

bool Profile::Parse(std::string_view text) {
  lines_.clear();
  bom_ = false;
  new_line_ = End::kLf;
  if (text.size() > kMaxSize || text.find('\0') != std::string_view::npos) return false;
  if (text.substr(0, kByteOrderMark.size()) == kByteOrderMark) {
    bom_ = true;
    text.remove_prefix(kByteOrderMark.size());
  }
  bool first_end = true;
  while (!text.empty()) {
    const size_t nl = text.find('\n');
    if (nl == std::string_view::npos) {
      lines_.push_back({std::string(text), End::kNone});
      break;
    }
    const bool crlf = nl > 0 && text[nl - 1] == '\r';
    lines_.push_back({std::string(text.substr(0, nl - crlf)), crlf ? End::kCrLf : End::kLf});
    text.remove_prefix(nl + 1);
    if (first_end) new_line_ = lines_.back().end;
    first_end = false;
  }
  return true;
}

WriteResult Profile::Write(const std::string& path) const {
  try {
    const std::string text = Text();
    if (text.size() > kMaxSize) return {"it would grow larger than 1 MiB"};
    struct stat old;
    const bool exists = ::lstat(path.c_str(), &old) == 0;
    if (exists && S_ISLNK(old.st_mode)) return {std::string("it ") + Describe(FileFault::kSymlink)};
    // A device, a FIFO, a folder: not ours.
    if (exists && !S_ISREG(old.st_mode))
      return {std::string("it ") + Describe(FileFault::kNotRegular)};

    const std::string temp = TemporaryPath(path);
    Fd fd(OpenLockedTemporary(temp, true));
    if (fd.get() < 0) return {ErrnoText()};
    errno = 0;
    if (::ftruncate(fd.get(), 0) != 0 || !WriteAll(fd.get(), text) ||
        (exists && ::fchmod(fd.get(), old.st_mode & 07777) != 0) ||
        ::rename(temp.c_str(), path.c_str()) != 0) {
      WriteResult failed{ErrnoText()};
      // Unlinked while still locked, so nobody else can be writing it.
      ::unlink(temp.c_str());
      return failed;
    }
    if (!fd.Close()) return {ErrnoText()};
    return {};
  } catch (...) {
    return {"out of memory"};
  }
}

std::optional<size_t> Profile::KeyLine(std::string_view section, std::string_view key) const {
  return Locate(lines_, section, key).key;
}

bool Profile::HasSection(std::string_view section) const {
  return Locate(lines_, section, {}).header.has_value();
}

std::optional<std::string> Profile::GetString(std::string_view section,
                                              std::string_view key) const {
  const Location loc = Locate(lines_, section, key);
  if (!loc.key) return std::nullopt;
  std::string_view value = ParseKeyLine(lines_[*loc.key].text)->value;
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
    lines_[*loc.key] = TextLine(std::move(line), lines_[*loc.key].end);
  } else if (loc.header) {
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(loc.insert_at),
                  {std::move(line), new_line_});
  } else {
    std::string header = "[";
    header += section;
    header += ']';
    lines_.push_back({std::move(header), new_line_});
    lines_.push_back({std::move(line), new_line_});
  }
}

std::string Profile::Text() const {
  size_t size = kByteOrderMark.size();
  for (const TextLine& line : lines_) size += line.text.size() + 2;
  std::string text;
  text.reserve(size);
  if (bom_) text = kByteOrderMark;
  for (size_t i = 0; i < lines_.size(); ++i) {
    text += lines_[i].text;
    // A last line without an end keeps it so; one that is no longer last needs one.
    const End end =
        lines_[i].end == End::kNone && i + 1 < lines_.size() ? new_line_ : lines_[i].end;
    if (end == End::kCrLf) text += '\r';
    if (end != End::kNone) text += '\n';
  }
  return text;
}

std::string TemporaryPath(const std::string& path) {
  return path + ".tmp";
}

void RemoveStaleTemporaries(const std::string& path) {
  std::error_code ec;
  const fs::path file(path);
  const std::string name = file.filename().string();
  const fs::path dir = file.has_parent_path() ? file.parent_path() : fs::path(".");
  for (fs::directory_iterator it(dir, ec), end; !ec && it != end; it.increment(ec)) {
    const std::string entry = it->path().filename().string();
    if (IsOldTemporaryName(entry, name)) fs::remove(it->path(), ec);
  }
  // Ours only when no write holds it.
  const std::string temp = TemporaryPath(path);
  Fd fd(OpenLockedTemporary(temp, false));
  if (fd.get() >= 0) ::unlink(temp.c_str());
}

int GetProfileInt(const std::string& path, std::string_view section, std::string_view key,
                  int fallback) {
  Profile profile;
  profile.Read(path);
  return profile.GetInt(section, key, fallback);
}

WriteResult WriteProfileString(const std::string& path, std::string_view section,
                               std::string_view key, std::string_view value) {
  Profile profile;
  if (const FileFault fault = profile.Load(path); fault != FileFault::kNone)
    return {std::string("it ") + Describe(fault)};
  profile.SetString(section, key, value);
  return profile.Write(path);
}

}  // namespace bq
