#pragma once

#include <QFrame>
#include <QWidget>
#include <array>

class QLabel;

namespace bq::qt {

class BoardTable;
class ScaledIndicators;

// The column beside the table: options, game buttons, prompts and the move list. Its texts follow
// the cards, down to kSmallest of the window's font and up; it never asks for less room than at
// the smallest, so a window that shrinks can always bring it back down.
class SidePanel : public QWidget {
  Q_OBJECT
 public:
  static constexpr double kSmallest = 0.65;
  explicit SidePanel(QWidget* parent = nullptr);
  // Call once the contents are in: notes the panel's size at the window's font, with `extra`
  // width for captions that turn bold during a game, and estimates it at the smallest.
  void Measure(int extra);
  // Measures the panel at the smallest instead of estimating it (once).
  void MeasureSmallest();
  // The room the panel takes with its texts at `scale`: measured up to the window's font, grown
  // in proportion beyond it (a little generous, since not all of it grows).
  QSizeF SizeAt(double scale) const;
  // The largest scale at which the table's cards, in what is left of `room` beside the panel and
  // above a prompt line `line_height` high at the window's font, still have larger faces than
  // the panel's texts.
  // Measures the smallest first if the texts must shrink.
  double FitScale(const BoardTable& table, QSize room, int line_height);
  // Texts at `scale` times the window's font; the width follows.
  void SetScale(double scale);
  double scale() const { return scale_; }
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return small_; }

 private:
  QSize Measured();
  QSize base_, small_;
  double scale_ = 1;
  ScaledIndicators* indicators_ = nullptr;  // made at the first scaled size
  int extra_ = 0;
  bool small_measured_ = false;
};

// The moves of the game in words, newest on top, as many as there is room for.
class MoveList : public QFrame {
  Q_OBJECT
 public:
  static constexpr int kEntries = 20;
  explicit MoveList(QWidget* parent = nullptr);
  QLabel* entry(int i) const { return entries_[static_cast<size_t>(i)]; }  // 1..kEntries
  void Arrange();
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  QLabel* title_ = nullptr;
  std::array<QLabel*, kEntries + 1> entries_{};
};

}  // namespace bq::qt
