#include "ui/qt/card_widget.h"

#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <algorithm>

#include "engine/cards.h"

namespace bq::qt {
namespace {

// Card faces keep their own colours in dark and light desktops alike, as printed cards would.
const QColor kFaceFill(0xfb, 0xf8, 0xee);
const QColor kFaceInk(0x1b, 0x1b, 0x1b);
const QColor kFaceInkDisabled(0x4a, 0x4a, 0x4a);
const QColor kEdge(0x86, 0x80, 0x74);
const QColor kMarkedFill(0xff, 0xea, 0xb0);
const QColor kMarkedEdge(0xd9, 0x5d, 0x0f);
const QColor kHoverEdge(0x2f, 0x6d, 0xb5);
const QColor kBackFill(0x25, 0x47, 0x74);
const QColor kBackLine(0x3c, 0x66, 0x9c);
const QColor kBackTrim(0xe9, 0xe2, 0xcc);
const QColor kMagnitude(0x3f, 0x93, 0x86);

constexpr int kPadX = 8;
constexpr int kPadY = 3;
constexpr int kFaceChars = 12;

QSize CardSize(const QFont& card_font) {
  const QFontMetrics fm(card_font);
  return {fm.horizontalAdvance(QLatin1Char('0')) * kFaceChars + 2 * kPadX, fm.height() + 2 * kPadY};
}

void PaintBack(QPainter& p, const QRectF& r, bool question, const QFont& font) {
  QPainterPath card;
  card.addRoundedRect(r, 4, 4);
  p.fillPath(card, kBackFill);
  p.save();
  p.setClipPath(card);
  p.setPen(QPen(kBackLine, 1.5));
  const qreal step = 7;
  for (qreal x = r.left() - r.height(); x < r.right(); x += step) {
    p.drawLine(QPointF(x, r.bottom()), QPointF(x + r.height(), r.top()));
    p.drawLine(QPointF(x, r.top()), QPointF(x + r.height(), r.bottom()));
  }
  p.restore();
  p.setPen(QPen(kBackTrim, 1));
  p.drawRoundedRect(r.adjusted(2.5, 2.5, -2.5, -2.5), 2.5, 2.5);
  p.setPen(QPen(kEdge, 1));
  p.drawPath(card);
  if (question) {
    p.setPen(kBackTrim);
    p.setFont(font);
    p.drawText(r, Qt::AlignCenter, QStringLiteral("?"));
  }
}

}  // namespace

QFont CardFont(const QFont& base) {
  QFont f = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  if (base.pointSizeF() > 0) f.setPointSizeF(base.pointSizeF() + 1);
  f.setBold(true);
  return f;
}

CardLabel::CardLabel(QWidget* parent) : QAbstractButton(parent) {
  setFocusPolicy(Qt::NoFocus);
  setAttribute(Qt::WA_Hover);
  setCursor(Qt::PointingHandCursor);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  setFont(CardFont(font()));
}

void CardLabel::setFace(const QString& face) {
  if (face == text()) return;
  setText(face);
  UpdateSpokenName();
  update();
}

void CardLabel::setMarked(bool marked) {
  if (marked == marked_) return;
  marked_ = marked;
  UpdateSpokenName();
  update();
}

void CardLabel::setSpokenPrefix(const QString& prefix) {
  prefix_ = prefix;
  UpdateSpokenName();
}

bool CardLabel::faceDown() const {
  return text().trimmed().isEmpty() || text() == QLatin1String(kFaceDown);
}

void CardLabel::UpdateSpokenName() {
  QString name = prefix_;
  name += faceDown() ? QStringLiteral(": face down") : QStringLiteral(": ") + text().trimmed();
  if (marked_) name += QStringLiteral(", chosen");
  setAccessibleName(name);
}

QSize CardLabel::sizeHint() const {
  return CardSize(font());
}

void CardLabel::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange) updateGeometry();
  QAbstractButton::changeEvent(event);
}

void CardLabel::contextMenuEvent(QContextMenuEvent* event) {
  emit rightClicked(event->globalPos());
  event->accept();
}

void CardLabel::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  const QRectF r = QRectF(rect()).adjusted(1, 1, -1, -1);
  if (faceDown()) {
    PaintBack(p, r, text() == QLatin1String(kFaceDown), font());
    // Face-down cards can be picked too (the opponent's, for Smackem and Takem).
    if (marked_ || (isEnabled() && underMouse())) {
      p.setPen(QPen(marked_ ? kMarkedEdge : kHoverEdge, marked_ ? 3 : 2));
      p.drawRoundedRect(r.adjusted(1, 1, -1, -1), 4, 4);
    }
    return;
  }
  QPainterPath card;
  card.addRoundedRect(r, 4, 4);
  p.fillPath(card, marked_ ? kMarkedFill : kFaceFill);

  // A thin bar under the number repeats its size for a glance along the Stack.
  bool ok = false;
  const int number = text().trimmed().toInt(&ok);
  if (ok && number > 0) {
    const qreal w = (r.width() - 8) * std::min(number, 100) / 100.0;
    p.fillRect(QRectF(r.left() + 4, r.bottom() - 4, w, 2), kMagnitude);
  }

  // Leading blanks place the digits; count them rather than trust text shaping with them.
  const QFontMetrics fm(font());
  const QString face = text();
  int blanks = 0;
  while (blanks < face.size() && face[blanks] == QLatin1Char(' ')) ++blanks;
  const qreal x = kPadX + blanks * fm.horizontalAdvance(QLatin1Char(' '));
  p.setPen(isEnabled() || marked_ ? kFaceInk : kFaceInkDisabled);
  p.drawText(QRectF(x, 0, width() - x, height() - 1), Qt::AlignVCenter | Qt::AlignLeft,
             face.mid(blanks).trimmed());

  QColor edge = kEdge;
  qreal pen = 1;
  if (marked_) {
    edge = kMarkedEdge;
    pen = 3;
  } else if (isEnabled() && underMouse()) {
    edge = kHoverEdge;
    pen = 2;
  }
  p.setPen(QPen(edge, pen));
  p.drawRoundedRect(r.adjusted(pen / 2 - 0.5, pen / 2 - 0.5, 0.5 - pen / 2, 0.5 - pen / 2), 4, 4);
}

CardBack::CardBack(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  setFont(CardFont(font()));
}

QSize CardBack::sizeHint() const {
  return CardSize(font());
}

void CardBack::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  PaintBack(p, QRectF(rect()).adjusted(1, 1, -1, -1), false, font());
}

PromptButton::PromptButton(QWidget* parent) : QPushButton(parent) {
  QFont f = font();
  f.setBold(true);
  setFont(f);
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
  setAutoDefault(true);  // Enter presses the prompt that has the focus
}

QRect PromptButton::TextRect(const QRect& rect) const {
  return rect.adjusted(10, 6, -10, -6);
}

int PromptButton::heightForWidth(int width) const {
  const QRect bounds = fontMetrics().boundingRect(TextRect(QRect(0, 0, width, 10000)),
                                                  Qt::AlignCenter | Qt::TextWordWrap, text());
  return std::max(bounds.height() + 12, fontMetrics().height() * 2 + 12);
}

QSize PromptButton::sizeHint() const {
  return {320, heightForWidth(320)};
}

QSize PromptButton::minimumSizeHint() const {
  return {200, heightForWidth(200)};
}

void PromptButton::paintEvent(QPaintEvent*) {
  QStylePainter p(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  option.text.clear();
  p.drawControl(QStyle::CE_PushButton, option);
  p.drawItemText(TextRect(rect()), Qt::AlignCenter | Qt::TextWordWrap, palette(), isEnabled(),
                 text(), QPalette::ButtonText);
}

SpreadHeading::SpreadHeading(QWidget* parent) : QWidget(parent) {
  QFont f = font();
  f.setBold(true);
  setFont(f);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void SpreadHeading::setText(const QString& text) {
  if (text == text_) return;
  text_ = text;
  setAccessibleName(text_.simplified());
  updateGeometry();
  update();
}

QSize SpreadHeading::sizeHint() const {
  const QStringList words = text_.split(QLatin1Char(' '), Qt::SkipEmptyParts);
  int widest = 0;
  for (const QString& w : words) widest = std::max(widest, fontMetrics().horizontalAdvance(w));
  return {static_cast<int>(words.size()) * (widest + 12), fontMetrics().height() + 4};
}

void SpreadHeading::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setPen(palette().color(QPalette::WindowText));
  const QStringList words = text_.split(QLatin1Char(' '), Qt::SkipEmptyParts);
  if (words.isEmpty()) return;
  const qreal part = qreal(width()) / words.size();
  for (int i = 0; i < words.size(); ++i)
    p.drawText(QRectF(i * part, 0, part, height()), Qt::AlignCenter, words[i]);
}

}  // namespace bq::qt
