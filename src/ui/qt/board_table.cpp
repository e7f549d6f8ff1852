#include "ui/qt/board_table.h"

#include <QEvent>
#include <QFontInfo>
#include <QLabel>
#include <algorithm>
#include <cmath>
#include <tuple>

#include "ui/qt/card_widget.h"

namespace bq::qt {
namespace {

// The smallest card is as high as this many pixels of the window's font, whatever the face font
// measures, so that 20-card Stacks fit a 1080-line screen at 200 %; the comfortable face font,
// against the window's font, is where a new window starts.
constexpr double kSmallestCard = 1.34;
constexpr double kComfortable = 1.3;
constexpr double kBeside = 0.9;     // text beside the cards against their numerals
constexpr double kPileWidth = 1.2;  // a pile card against a Stack card
constexpr double kPileHeight = 2.4;
constexpr double kRowGap = 1;
constexpr double kTallest = 0.5;     // extra height a card may take from spare room
constexpr double kWidestGap = 0.25;  // and a row gap, against a card's height
constexpr double kColumnGap = 6;
constexpr double kPilesGap = 24;  // between your Stack and the piles
constexpr double kBetweenPiles = 10;
constexpr double kBelowRows = 4;

QRect Round(double x, double y, double w, double h) {
  const int left = static_cast<int>(std::lround(x));
  const int top = static_cast<int>(std::lround(y));
  return {left, top, static_cast<int>(std::lround(x + w)) - left,
          static_cast<int>(std::lround(y + h)) - top};
}

QFont Sized(QFont f, double px, bool bold) {
  f.setPixelSize(std::max(1, static_cast<int>(std::lround(px))));
  f.setBold(bold);
  return f;
}

// Fixed to its place: a widget whose size cannot change does not ask for a new layout when its
// caption does, which keeps a click's work to repainting what changed.
void Place(QWidget* w, const QRect& r) {
  if (w == nullptr || w->geometry() == r) return;
  w->setFixedSize(r.size());
  w->move(r.topLeft());
}

}  // namespace

// The table's parts for one size of the face font.
struct BoardTable::Sizes {
  double card_w = 0, card_h = 0, pile_w = 0, pile_h = 0;
  double range_w = 0, verdict_w = 0, key_w = 0, heading_h = 0, setup_h = 0, line_h = 0;
  double setup_w = 0;  // the set-up buttons' row
  double stack_w = 0;  // a Stack's column: its range labels and cards, or its set-up buttons
  double width = 0, height = 0;
};

BoardTable::BoardTable(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  for (int k = 1; k <= kMaxStackSize; ++k) {
    // The keys that pick the slot: 1..9 and 0, with Shift for 11..20.
    const QString digit = QString::number(k % 10);
    auto* key = new QLabel(k <= 10 ? digit : QStringLiteral("\u21e7") + digit, this);
    key->setAlignment(Qt::AlignCenter);
    key->setForegroundRole(QPalette::PlaceholderText);
    key->setToolTip(
        k <= 10 ? QStringLiteral("Key %1 picks this slot; Ctrl+%1 the opponent's").arg(digit)
                : QStringLiteral("Shift+%1 picks this slot; Ctrl+Shift+%1 the "
                                 "opponent's")
                      .arg(digit));
    keys_[static_cast<size_t>(k)] = key;
  }
}

void BoardTable::Finish() {
  // The table places its parts itself. One that has never been given a size would measure
  // itself for its own size each time it is shown, which the window's first frame waits for.
  for (QWidget* w : findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) w->resize(w->size());
  SetStackSize(n_);
}

void BoardTable::SetStackSize(int n) {
  n_ = std::clamp(n, 1, kMaxStackSize);
  for (int k = 1; k <= kMaxStackSize; ++k) keys_[static_cast<size_t>(k)]->setVisible(k <= n_);
  updateGeometry();
  Arrange();
}

BoardTable::Fonts BoardTable::FontsFor(double font_px) const {
  // Every text on the table follows the cards, below the window's font too: at small cards a
  // heading in the desktop's size would dwarf the numerals it names.
  // The slot keys take the face font: it has the Shift arrow, which the desktop's font may lack
  // and would then fetch from a fallback font at every size.
  const double beside = font_px * kBeside;
  const QFont mono = Sized(CardFont(), beside, false);
  return {mono, mono, Sized(font(), beside, false), Sized(font(), beside, true)};
}

const BoardTable::TextRoom& BoardTable::TextsAt(double font_px) const {
  QString captions;  // what was measured: a caption that changes measures afresh
  for (QWidget* button : {a.setups[0], a.setups[1], b.setups[0], b.setups[1]})
    if (button != nullptr) captions += button->property("text").toString() + QLatin1Char('\n');
  for (QLabel* heading : {a.heading, b.heading})
    if (heading != nullptr) captions += heading->text() + QLatin1Char('\n');
  if (captions != measured_captions_) {
    measured_captions_ = captions;
    text_room_.clear();
  }
  const int key = static_cast<int>(std::lround(font_px * kBeside));
  if (auto it = text_room_.find(key); it != text_room_.end()) return it->second;
  TextRoom t;
  const Fonts f = FontsFor(font_px);
  const QFontMetricsF mono(f.mono), keys(f.keys), label(f.label), bold(f.heading);
  t.range_w = mono.horizontalAdvance(QStringLiteral(" 100")) + 4;
  t.verdict_w = mono.horizontalAdvance(QLatin1Char('R')) + 8;
  t.key_w = keys.horizontalAdvance(QStringLiteral("\u21e70")) + 6;
  t.heading_h = bold.height() + 4;
  t.line_h = label.lineSpacing();
  t.setup_h = label.height() + 10;
  for (QWidget* button : a.setups)
    if (button != nullptr)
      t.widest_setup =
          std::max(t.widest_setup, label.horizontalAdvance(button->property("text").toString()) +
                                       label.height() + 8);
  for (QLabel* heading : {a.heading, b.heading})
    if (heading != nullptr)
      t.widest_heading = std::max(t.widest_heading, bold.horizontalAdvance(heading->text()) + 4);
  return text_room_.emplace(key, t).first->second;
}

BoardTable::TextRoom BoardTable::TextsScaled(double font_px) const {
  // From the texts at the comfortable size, which the preferred size has measured already.
  const int measured = std::max(
      1, static_cast<int>(std::lround(QFontInfo(font()).pixelSize() * kComfortable * kBeside)));
  const double k = font_px * kBeside / measured;
  TextRoom t = TextsAt(measured / kBeside);
  for (double* v : {&t.range_w, &t.verdict_w, &t.key_w, &t.heading_h, &t.line_h, &t.setup_h,
                    &t.widest_setup, &t.widest_heading})
    *v *= k;
  return t;
}

BoardTable::Sizes BoardTable::Measure(double font_px, int n, bool exact) const {
  Sizes s;
  const QSizeF card = CardSizeFor(font_px);
  s.card_w = card.width();
  s.card_h = card.height();
  s.pile_w = s.card_w * kPileWidth;
  s.pile_h = s.card_h * kPileHeight;
  const TextRoom t = exact ? TextsAt(font_px) : TextsScaled(font_px);
  s.range_w = t.range_w;
  s.verdict_w = t.verdict_w;
  s.key_w = t.key_w;
  s.heading_h = t.heading_h;
  s.line_h = t.line_h;
  // The set-up buttons need their captions' room, not a style's wider default, and the headings
  // theirs: neither is cut off, whatever the font. The two buttons share the row in halves.
  s.setup_w = std::max(s.range_w + s.card_w, 2 * t.widest_setup + kColumnGap);
  s.setup_h = t.setup_h;
  s.stack_w = std::max(s.setup_w, t.widest_heading);
  s.width = 2 * s.stack_w + s.verdict_w + 3 * kColumnGap + s.key_w + kPilesGap + 2 * s.pile_w +
            kBetweenPiles;
  s.height = s.heading_h + n * s.card_h + (n - 1) * kRowGap + kBelowRows + s.setup_h;
  return s;
}

double BoardTable::SmallestFont() const {
  return CardFontForHeight(QFontInfo(font()).pixelSize() * kSmallestCard);
}

double BoardTable::FitFont(QSize room, int n) const {
  auto fits = [&](double px, bool exact) {
    const Sizes s = Measure(px, n, exact);
    return s.width <= room.width() && s.height <= room.height();
  };
  double low = SmallestFont(), high = QFontInfo(font()).pixelSize() * 5.0;
  // The largest size that fits, to a tenth of a pixel, found with the texts scaled from one
  // measured size (a new size of font costs more than the whole search), then checked with the
  // texts measured at the size found, stepping down while hinting makes them a pixel wider.
  while (high - low > 0.1) {
    const double mid = (low + high) / 2;
    (fits(mid, false) ? low : high) = mid;
  }
  const double smallest = SmallestFont();
  while (low > smallest && !fits(low, true)) low = std::max(smallest, low - 0.5);
  return low;
}

QSize BoardTable::PreferredSize(int n) const {
  const Sizes s = Measure(QFontInfo(font()).pixelSize() * kComfortable, n);
  return {static_cast<int>(std::ceil(s.width)), static_cast<int>(std::ceil(s.height))};
}

QSize BoardTable::minimumSizeHint() const {
  const Sizes s = Measure(SmallestFont(), n_, exact_minimum_);
  return {static_cast<int>(std::ceil(s.width)), static_cast<int>(std::ceil(s.height))};
}

void BoardTable::MeasureMinimum() {
  exact_minimum_ = true;
  updateGeometry();
}

void BoardTable::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Arrange();
}

void BoardTable::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) {
    text_room_.clear();
    updateGeometry();
    Arrange();
  }
}

void BoardTable::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (arrange_pending_) Arrange();
}

void BoardTable::Arrange() {
  if (a.cards[1] == nullptr) return;  // not filled in yet
  // Out of sight, the size is not the one the table will be shown at.
  arrange_pending_ = !isVisible();
  if (arrange_pending_) return;
  placed_font_ = FitFont(size(), n_);
  Sizes s = Measure(placed_font_, n_);
  ApplyFonts(FontsFor(placed_font_));
  // Whole pixels, the same for every card, so that every face gets the same font.
  // A board bound by the width leaves height to spare on a tall screen: the rows take it, as
  // taller cards and wider gaps, rather than leaving the lower half empty. The numerals keep the
  // size the width allows, and the cards never stretch past half as tall again.
  double gap = kRowGap;
  if (const double spare = height() - s.height; spare > n_) {
    const double per_row = spare / n_;
    const double taller = std::min(per_row * 0.7, s.card_h * kTallest);
    gap += std::min(per_row - taller, s.card_h * kWidestGap);
    s.card_h += taller;
  }
  s.card_w = std::floor(s.card_w);
  s.card_h = std::floor(s.card_h);
  s.pile_w = std::floor(s.pile_w);
  s.pile_h = std::floor(s.pile_h);
  s.stack_w = std::ceil(s.stack_w);
  const double x0 = std::floor(std::max(0.0, (width() - s.width) / 2));
  const double y0 = 0;  // room to spare goes below, where the eye ends
  // Cards stand at the inner side of their column, next to the slot keys.
  const double b_left = x0, b_card = b_left + s.stack_w - s.card_w, b_range = b_card - s.range_w;
  const double verdict = b_left + s.stack_w;
  const double key = verdict + s.verdict_w + 2 * kColumnGap;
  const double a_left = key + s.key_w + kColumnGap, a_range = a_left, a_card = a_range + s.range_w;
  const double pile1 = a_left + s.stack_w + kPilesGap, pile2 = pile1 + s.pile_w + kBetweenPiles;
  const double rows = y0 + s.heading_h;

  Place(b.heading, Round(b_left, y0, s.stack_w + s.verdict_w, s.heading_h));
  Place(a.heading, Round(a_left, y0, s.stack_w, s.heading_h));
  for (int k = 1; k <= n_; ++k) {
    const auto i = static_cast<size_t>(k);
    const double y = rows + (k - 1) * (s.card_h + gap);
    Place(b.ranges[i], Round(b_range, y, s.range_w - 2, s.card_h));
    Place(b.cards[i], Round(b_card, y, s.card_w, s.card_h));
    Place(b.backs[i], Round(b_card, y, s.card_w, s.card_h));
    Place(verdicts[i], Round(verdict, y, s.verdict_w, s.card_h));
    Place(keys_[i], Round(key, y, s.key_w, s.card_h));
    Place(a.ranges[i], Round(a_range, y, s.range_w - 2, s.card_h));
    Place(a.cards[i], Round(a_card, y, s.card_w, s.card_h));
    Place(a.backs[i], Round(a_card, y, s.card_w, s.card_h));
  }
  const double setup_y = rows + n_ * (s.card_h + gap) - gap + kBelowRows;
  // Under the cards, at the inner side of the column like them, as wide as their captions need.
  const double b_setup = std::max(s.setup_w, s.range_w + s.card_w + s.verdict_w);
  for (const auto& [side, left, width] : {std::tuple{&b, verdict + s.verdict_w - b_setup, b_setup},
                                          std::tuple{&a, a_range, s.setup_w}}) {
    const double half = (width - kColumnGap) / 2;
    Place(side->setups[0], Round(left, setup_y, half, s.setup_h));
    Place(side->setups[1], Round(left + half + kColumnGap, setup_y, half, s.setup_h));
  }
  for (int p = 0; p < 2; ++p) {
    const double x = p == 0 ? pile1 : pile2;
    Place(pile_headings[static_cast<size_t>(p)], Round(x, y0, s.pile_w, s.heading_h));
    Place(piles[static_cast<size_t>(p)], Round(x, rows, s.pile_w, s.pile_h));
  }
  // Move counts under the piles, with room for five digits.
  const double counts_y = rows + s.pile_h + 2 * kColumnGap;
  const QFontMetricsF label(count_captions[0]->font());
  const double digits = label.horizontalAdvance(QStringLiteral("00000"));
  const double counts_w =
      std::max(s.pile_w, digits + label.horizontalAdvance(QStringLiteral("Opponent  ")));
  Place(count_heading, Round(pile1, counts_y, counts_w, s.heading_h));
  for (int i = 0; i < 2; ++i) {
    const double y = counts_y + s.heading_h + i * s.line_h;
    Place(count_captions[static_cast<size_t>(i)], Round(pile1, y, counts_w - digits, s.line_h));
    Place(counts[static_cast<size_t>(i)], Round(pile1 + counts_w - digits, y, digits, s.line_h));
  }
}

void BoardTable::ApplyFonts(const Fonts& f) {
  auto set = [](QWidget* w, const QFont& font) {
    if (w != nullptr && w->font() != font) w->setFont(font);
  };
  const QFont mono_bold = Sized(f.mono, f.mono.pixelSize(), true);
  for (int k = 1; k <= kMaxStackSize; ++k) {
    const auto i = static_cast<size_t>(k);
    set(keys_[i], f.keys);
    set(a.ranges[i], f.mono);
    set(b.ranges[i], f.mono);
    set(verdicts[i], mono_bold);
  }
  for (QWidget* w : {static_cast<QWidget*>(a.heading), static_cast<QWidget*>(b.heading),
                     static_cast<QWidget*>(pile_headings[0]),
                     static_cast<QWidget*>(pile_headings[1]), static_cast<QWidget*>(count_heading)})
    set(w, f.heading);
  for (QWidget* w :
       {a.setups[0], a.setups[1], b.setups[0], b.setups[1],
        static_cast<QWidget*>(count_captions[0]), static_cast<QWidget*>(count_captions[1]),
        static_cast<QWidget*>(counts[0]), static_cast<QWidget*>(counts[1])})
    set(w, f.label);
}

constexpr int kAreaMargin = 6;
constexpr int kAreaEms = 25;  // the narrowest a prompt is laid out, in the font's pixel size

PromptArea::PromptArea(QWidget* parent) : QFrame(parent) {
  setFrameShape(QFrame::StyledPanel);
  setFrameShadow(QFrame::Sunken);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void PromptArea::Add(PromptButton* button, bool move_button) {
  button->resize(button->size());  // placed by Arrange: see BoardTable::Finish
  buttons_.emplace_back(button, move_button);
  heights_.clear();
  updateGeometry();
}

int PromptArea::PlaceHeight(int width) const {
  // Measured again when a caption changes (Fast Mode shortens some); kept by width, since the
  // layout asks at the width it offers and the area arranges at the width it has.
  qsizetype text = 0;
  for (const auto& [button, move] : buttons_) text += button->text().size();
  if (text != measured_text_) {
    measured_text_ = text;
    heights_.clear();
  }
  auto [place, fresh] = heights_.emplace(width, 0);
  if (fresh)
    for (const auto& [button, move] : buttons_)
      place->second = std::max(place->second, button->heightForWidth(width));
  return place->second;
}

QSize PromptArea::sizeHint() const {
  const int narrowest = kAreaEms * QFontInfo(font()).pixelSize();
  const int inner = std::max(narrowest, width() - 2 * kAreaMargin);
  return {narrowest + 2 * kAreaMargin, 2 * PlaceHeight(inner) + 3 * kAreaMargin};
}

void PromptArea::changeEvent(QEvent* event) {
  QFrame::changeEvent(event);
  if (event->type() == QEvent::FontChange) {
    heights_.clear();
    updateGeometry();
  }
}

void PromptArea::resizeEvent(QResizeEvent* event) {
  QFrame::resizeEvent(event);
  Arrange(upper_for_move_);
  updateGeometry();  // the height follows the width the area was given
}

void PromptArea::Arrange(bool upper_for_move) {
  upper_for_move_ = upper_for_move;
  const int w = width() - 2 * kAreaMargin;
  const int h = PlaceHeight(w);
  int next = upper_for_move ? 1 : 0;
  for (const auto& [button, move] : buttons_) {
    if (button->isHidden()) continue;
    const int place = move && upper_for_move ? 0 : std::min(next++, 1);
    const QRect r(kAreaMargin, kAreaMargin + place * (h + kAreaMargin), w, h);
    Place(button, r);
  }
}

}  // namespace bq::qt
