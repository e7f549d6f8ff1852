#pragma once

#include <QAbstractButton>
#include <QPushButton>
#include <QString>
#include <QWidget>
#include <map>

namespace bq::qt {

// One card slot or pile: the card's 12-character face in a fixed-pitch font, so its leading
// blanks show the card's size and an ordered Stack reads as a diagonal. A blank face or the
// Draw Pile's "?" is drawn as the back of a card. Card colours are fixed; the rest follows the
// palette.
class CardLabel : public QAbstractButton {
  Q_OBJECT
 public:
  explicit CardLabel(QWidget* parent = nullptr);

  QString face() const { return text(); }
  void setFace(const QString& face);
  bool marked() const { return marked_; }
  void setMarked(bool marked);
  // A ring round the card in the palette's highlight colour: it draws the eye, it is no choice.
  bool highlighted() const { return highlighted_; }
  void setHighlighted(bool on);
  // The accessible name is made of this and the face, e.g. "Your card 3: 45". A hidden card
  // says only "face down": what is not on the screen is not on the accessibility bus either.
  void setSpokenPrefix(const QString& prefix);
  bool faceDown() const;
  void setVisible(bool visible) override;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 signals:
  void rightClicked(QPoint global_pos);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void UpdateSpokenName(bool shown);

  bool marked_ = false;
  bool highlighted_ = false;
  QString prefix_;
  QFont face_font_;  // follows the card's size, set before the first paint
};

// Stands in a slot whose card the player may not see: the back of a card, not clickable.
class CardBack : public QWidget {
  Q_OBJECT
 public:
  explicit CardBack(QWidget* parent = nullptr);
  QSize sizeHint() const override;
  bool highlighted() const { return highlighted_; }
  void setHighlighted(bool on);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool highlighted_ = false;
};

// A button whose caption is a whole message, laid out as a narrow button of its own: a run of
// blanks in the caption ends a line, and a line too long for the button wraps at its blanks.
class PromptButton : public QPushButton {
  Q_OBJECT
 public:
  explicit PromptButton(QWidget* parent = nullptr);
  // "    You win.    Click here to continue." -> "You win.\nClick here to continue."
  static QString Lines(const QString& caption);
  // A result button stands out in the palette's highlight colours.
  void setStandsOut(bool on);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QRect TextRect(const QRect& rect) const;
  bool stands_out_ = false;
  mutable std::map<int, int> heights_;  // by width, for measured_text_ in measured_font_
  mutable QString measured_text_, measured_lines_;
  mutable QFont measured_font_;
  mutable bool plain_ = false;  // wrapped from word advances
};

// A heading whose blank-separated words stand over equal columns below it ("Wins   Losses   Ties"
// over three columns of numbers).
class SpreadHeading : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString text READ text WRITE setText)
 public:
  explicit SpreadHeading(QWidget* parent = nullptr);
  QString text() const { return text_; }
  void setText(const QString& text);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString text_;
};

// The prompt line under the board: up to two lines of words in the window's font, in a strip
// of fixed height, so a new prompt repaints the strip and moves nothing.
class PromptLine : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString text READ text WRITE setText)
 public:
  explicit PromptLine(QWidget* parent = nullptr);
  QString text() const { return text_; }
  void setText(const QString& text);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  QString text_;
};

// A card label's size for a face font of this pixel size, and the largest face font that fits a
// label: the card face with its margins and the room of the highlight ring.
QSizeF CardSizeFor(double font_px);
// The largest face font whose card is this high.
double CardFontForHeight(double card_h);
// The fixed-pitch family of the card faces.
QFont CardFont();
double CardFontFor(QSizeF size);

}  // namespace bq::qt
