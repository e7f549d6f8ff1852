#pragma once

#include <QFrame>
#include <QWidget>
#include <array>
#include <map>
#include <vector>

#include "engine/cards.h"

class QLabel;

namespace bq::qt {

class CardBack;
class CardLabel;
class PromptButton;

// The table: both Stacks as columns (slot 1 at the top, so an ordered Stack reads as a diagonal)
// with the slot keys between them, and the two piles with the move counts beside. Everything is
// placed by hand from one card size that follows the table's size, so cards grow with the window
// and nothing moves when controls come and go or a count grows a digit. The window fills in the
// widgets; the table only places them (and makes the slot keys).
class BoardTable : public QWidget {
  Q_OBJECT
 public:
  explicit BoardTable(QWidget* parent = nullptr);

  struct Side {
    QLabel* heading = nullptr;
    std::array<CardLabel*, kMaxStackSize + 1> cards{};  // [1..20]
    std::array<CardBack*, kMaxStackSize + 1> backs{};
    std::array<QLabel*, kMaxStackSize + 1> ranges{};
    std::array<QWidget*, 2> setups{};  // Smackem, Takem
  };
  Side a, b;
  std::array<QLabel*, kMaxStackSize + 1> verdicts{};
  std::array<QLabel*, 2> pile_headings{};  // Discard Pile, Draw Pile
  std::array<CardLabel*, 2> piles{};
  QLabel* count_heading = nullptr;
  std::array<QLabel*, 2> count_captions{};
  std::array<QLabel*, 2> counts{};

  // Call once the widgets are in.
  void Finish();
  void SetStackSize(int n);
  int stackSize() const { return n_; }
  // The table with n rows at a comfortable card size.
  QSize PreferredSize(int n) const;
  QSize sizeHint() const override { return PreferredSize(n_); }
  // Until MeasureMinimum, from texts scaled to the smallest size: its fonts are not needed for
  // the first frame.
  QSize minimumSizeHint() const override;
  void MeasureMinimum();
  // The pixel size of the card faces' font, as placed now.
  double cardFontSize() const { return placed_font_; }
  // The largest face font with which n rows fit the room, and the smallest the table takes.
  double FitFont(QSize room, int n) const;
  double SmallestFont() const;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  struct Sizes;
  // The texts around the cards for one face font: mono for ranges and judgements, keys, labels
  // and headings.
  struct Fonts {
    QFont mono, keys, label, heading;
  };
  Fonts FontsFor(double font_px) const;
  // With `exact` false, the texts are scaled from those at a comfortable size: for searching.
  Sizes Measure(double font_px, int n, bool exact = true) const;
  // What the texts beside the cards need at one pixel size. Fonts come in whole pixels, so the
  // search for the largest board measures each size's texts once.
  struct TextRoom {
    double range_w = 0, verdict_w = 0, key_w = 0, heading_h = 0, line_h = 0;
    double setup_h = 0, widest_setup = 0, widest_heading = 0;
  };
  const TextRoom& TextsAt(double font_px) const;
  TextRoom TextsScaled(double font_px) const;
  void ApplyFonts(const Fonts& f);
  void Arrange();

  int n_ = 10;
  std::array<QLabel*, kMaxStackSize + 1> keys_{};
  double placed_font_ = 0;
  bool arrange_pending_ = true;
  bool exact_minimum_ = false;
  mutable std::map<int, TextRoom> text_room_;  // by the texts' pixel size
  mutable QString measured_captions_;
};

// The prompt buttons' area: room for two at once, the move's own button (cmdPlayA, cmdPlayB) in
// the upper place and whatever else the game has to say in the lower, so that no prompt moves
// another and the area never changes size.
class PromptArea : public QFrame {
  Q_OBJECT
 public:
  explicit PromptArea(QWidget* parent = nullptr);
  void Add(PromptButton* button, bool move_button);
  // Places the shown buttons; the upper place stays the move button's when it has one.
  void Arrange(bool upper_for_move);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  int PlaceHeight(int width) const;

  std::vector<std::pair<PromptButton*, bool>> buttons_;
  bool upper_for_move_ = true;
  mutable std::map<int, int> heights_;  // by width
  mutable qsizetype measured_text_ = -1;
};

}  // namespace bq::qt
