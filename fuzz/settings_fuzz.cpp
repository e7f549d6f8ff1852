// Load, save, load on any text: the second load gives the values of the first (less the options
// that Random drew), the file then holds every key, and every line the settings do not own is
// still there, in its order. Saving again changes nothing.
#include <cstdint>
#include <set>
#include <string_view>

#include "fuzz_check.h"
#include "store/profile.h"
#include "store/settings.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  bq::Profile before;
  if (!before.Parse(std::string_view(reinterpret_cast<const char*>(data), size))) return 0;
  const std::vector<bq::SettingsKey> keys = bq::AllSettingsKeys();
  std::set<size_t> owned;
  for (const bq::SettingsKey& k : keys)
    if (const auto line = before.KeyLine(k.section, k.key)) owned.insert(*line);

  const bq::Settings loaded = bq::SettingsFromProfile(before);
  bq::Profile saved = before;
  bq::PutSettings(saved, loaded);
  bq::Profile after;
  BQ_FUZZ_CHECK(after.Parse(saved.Text()));

  bq::Settings expected = loaded;
  if (expected.options.random == 1) {
    bq::StoredOptions& o = expected.options;
    o.stackem = o.backem = o.switchem = o.smackem = o.takem = 0;
  }
  BQ_FUZZ_CHECK(bq::SettingsFromProfile(after) == expected);
  for (const bq::SettingsKey& k : keys) BQ_FUZZ_CHECK(after.KeyLine(k.section, k.key));

  // The unowned lines of `before`, in order, within `after`. A last line that ended in bare CRs
  // and is followed by new lines has its last CR read as part of a CRLF end: the bytes are the
  // same, so trailing CRs are left out of the comparison.
  const auto text = [](std::string_view line) {
    while (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    return line;
  };
  size_t next = 0;
  for (size_t i = 0; i < before.LineCount(); ++i) {
    if (owned.count(i) != 0) continue;
    while (next < after.LineCount() && text(after.Line(next)) != text(before.Line(i))) ++next;
    BQ_FUZZ_CHECK(next < after.LineCount());
    ++next;
  }

  bq::Profile again = after;
  bq::PutSettings(again, bq::SettingsFromProfile(after));
  BQ_FUZZ_CHECK(again.Text() == after.Text());
  return 0;
}
