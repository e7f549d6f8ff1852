#pragma once

#include <QAbstractButton>
#include <QPushButton>
#include <QString>
#include <QWidget>

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
  // The accessible name is made of this and the face, e.g. "Your card 3: 45".
  void setSpokenPrefix(const QString& prefix);
  bool faceDown() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 signals:
  void rightClicked(QPoint global_pos);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void UpdateSpokenName();

  bool marked_ = false;
  QString prefix_;
};

// Stands in a slot whose card the player may not see: the back of a card, not clickable.
class CardBack : public QWidget {
  Q_OBJECT
 public:
  explicit CardBack(QWidget* parent = nullptr);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

// A button whose caption is a whole message. It wraps, keeping the caption's runs of blanks, so
// long prompts stay readable in a narrow column.
class PromptButton : public QPushButton {
  Q_OBJECT
 public:
  explicit PromptButton(QWidget* parent = nullptr);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QRect TextRect(const QRect& rect) const;
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

// The font of card faces and of the judgement labels.
QFont CardFont(const QFont& base);

}  // namespace bq::qt
