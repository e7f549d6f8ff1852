#include "ui/qt/card_widget.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QFontInfo>
#include <QHash>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QPixmapCache>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <algorithm>
#include <bitset>
#include <cmath>
#include <memory>
#include <vector>

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

constexpr int kFaceChars = 12;
constexpr double kRing = 2;    // room round the card for the highlight ring
constexpr double kPadX = 0.5;  // per pixel of the face font
constexpr double kPadY = 0.12;

QFont FaceFont(double px) {
  QFont f = CardFont();
  f.setBold(true);
  f.setPixelSize(std::max(1, static_cast<int>(px)));
  return f;
}

// The face font's digit advance and line height per pixel of its size.
struct FaceRatios {
  double advance, height;
};
const FaceRatios& Ratios() {
  static const FaceRatios ratios = [] {
    const QFontMetricsF fm(FaceFont(100));
    return FaceRatios{fm.horizontalAdvance(QLatin1Char('0')) / 100, fm.height() / 100};
  }();
  return ratios;
}

double Radius(const QRectF& r) {
  return std::max(3.0, r.height() * 0.14);
}

void PaintRing(QPainter& p, const QRectF& outer, const QColor& colour) {
  p.setPen(QPen(colour, kRing));
  const QRectF r = outer.adjusted(kRing / 2, kRing / 2, -kRing / 2, -kRing / 2);
  p.setBrush(Qt::NoBrush);
  p.drawRoundedRect(r, Radius(r) + 1, Radius(r) + 1);
}

// The keyboard's place: a dashed ring inside the card's edge, unlike any mark or highlight.
void PaintFocus(QPainter& p, const QRectF& card, const QColor& colour) {
  QPen pen(colour, 2, Qt::DashLine);
  p.setPen(pen);
  p.setBrush(Qt::NoBrush);
  const QRectF r = card.adjusted(4, 4, -4, -4);
  p.drawRoundedRect(r, Radius(r), Radius(r));
}

// The back's cross-hatching, `phase` device pixels into its pattern: one tile of whole periods
// in whole device pixels (as far as the pixel ratio allows), to fill the card with. Stroking every
// line across every card cost the first frame more than anything else on the board.
QBrush Hatching(qreal dpr, QPointF phase) {
  constexpr qreal kStep = 7;
  int periods = 1;
  while (periods < 8 && std::abs(kStep * periods * dpr - std::round(kStep * periods * dpr)) > 1e-6)
    ++periods;
  const qreal step = kStep * dpr;
  const int side = static_cast<int>(std::lround(step * periods));
  QImage tile(side, side, QImage::Format_ARGB32_Premultiplied);
  tile.fill(Qt::transparent);
  QPainter q(&tile);
  q.setRenderHint(QPainter::Antialiasing);
  q.translate(phase);
  q.setPen(QPen(kBackLine, 1.5 * dpr));
  for (int m = -1; m <= 2 * periods + 1; ++m) {
    const qreal c = m * step;
    q.drawLine(QPointF(c + step, -step), QPointF(c - side - step, side + step));
    q.drawLine(QPointF(c - side - step, -step), QPointF(c + step, side + step));
  }
  q.end();
  QBrush brush(tile);
  brush.setTransform(QTransform::fromScale(1 / dpr, 1 / dpr));
  return brush;
}

void PaintBack(QPainter& p, const QRectF& r, bool question, const QFont& font) {
  QPainterPath card;
  card.addRoundedRect(r, Radius(r), Radius(r));
  p.fillPath(card, kBackFill);
  // Diagonals through the card's corners, one way and the other, every 7 pixels.
  const qreal dpr = p.device()->devicePixelRatioF();
  const QPointF at = QPointF(r.left() - r.height() / 2, r.center().y()) * dpr;
  const QPointF whole(std::floor(at.x()), std::floor(at.y()));
  p.save();
  p.setBrushOrigin(whole / dpr);
  p.fillPath(card, Hatching(dpr, at - whole));
  p.restore();
  p.setPen(QPen(kBackTrim, 1));
  p.drawRoundedRect(r.adjusted(2.5, 2.5, -2.5, -2.5), Radius(r) - 1.5, Radius(r) - 1.5);
  p.setPen(QPen(kEdge, 1));
  p.drawPath(card);
  if (question) {
    p.setPen(kBackTrim);
    p.setFont(font);
    p.drawText(r, Qt::AlignCenter, QStringLiteral("?"));
  }
}

// The backs are all alike and their hatching is the costliest thing on the board to draw: each
// size is drawn once, and the rest of the Stack is copied.
void PaintBackCached(QPainter& p, const QRectF& outer, const QRectF& r, bool question,
                     const QFont& font, qreal dpr) {
  const QString key = QStringLiteral("bq-back %1x%2 %3 %4 %5")
                          .arg(outer.width())
                          .arg(outer.height())
                          .arg(question ? font.pixelSize() : 0)
                          .arg(dpr);
  QPixmap back;
  if (!QPixmapCache::find(key, &back)) {
    back = QPixmap((outer.size() * dpr).toSize());
    back.setDevicePixelRatio(dpr);
    back.fill(Qt::transparent);
    QPainter q(&back);
    q.setRenderHint(QPainter::Antialiasing);
    PaintBack(q, r, question, font);
    q.end();
    QPixmapCache::insert(key, back);
  }
  p.drawPixmap(outer.topLeft(), back);
}

}  // namespace

QFont CardFont() {
  static const QFont font = [] {
    // Named, so that every desktop draws the same faces; without it, the desktop's fixed-pitch
    // font, whose measured metrics the board then follows. The font database answers whether it
    // is there: loading the font to ask would cost the start as much as a font the board uses.
    QFont f(QStringLiteral("DejaVu Sans Mono"));
    f.setStyleHint(QFont::TypeWriter);
    f.setFixedPitch(true);
    if (!QFontDatabase::hasFamily(f.family()) || !QFontDatabase::isFixedPitch(f.family()))
      f = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    return f;
  }();
  return font;
}

double CardFontForHeight(double card_h) {
  const FaceRatios& r = Ratios();
  return std::max(1.0, (card_h - 2 * kRing) / (r.height + 2 * kPadY));
}

QSizeF CardSizeFor(double font_px) {
  const FaceRatios& r = Ratios();
  return {font_px * (kFaceChars * r.advance + 2 * kPadX) + 2 * kRing,
          font_px * (r.height + 2 * kPadY) + 2 * kRing};
}

double CardFontFor(QSizeF size) {
  const FaceRatios& r = Ratios();
  return std::floor(std::min((size.width() - 2 * kRing) / (kFaceChars * r.advance + 2 * kPadX),
                             (size.height() - 2 * kRing) / (r.height + 2 * kPadY)));
}

CardLabel::CardLabel(QWidget* parent) : QAbstractButton(parent) {
  setFocusPolicy(Qt::NoFocus);
  setAttribute(Qt::WA_Hover);
  setCursor(Qt::PointingHandCursor);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void CardLabel::setFace(const QString& face) {
  if (face == text()) return;
  setText(face);
  UpdateSpokenName(!isHidden());
  update();
}

void CardLabel::setMarked(bool marked) {
  if (marked == marked_) return;
  marked_ = marked;
  UpdateSpokenName(!isHidden());
  update();
}

void CardLabel::setHighlighted(bool on) {
  if (on == highlighted_) return;
  highlighted_ = on;
  update();
}

void CardLabel::setSpokenPrefix(const QString& prefix) {
  prefix_ = prefix;
  UpdateSpokenName(!isHidden());
}

bool CardLabel::faceDown() const {
  return text().trimmed().isEmpty() || text() == QLatin1String(kFaceDown);
}

void CardLabel::UpdateSpokenName(bool shown) {
  QString name = prefix_;
  name += faceDown() || !shown ? QStringLiteral(": face down")
                               : QStringLiteral(": ") + text().trimmed();
  if (marked_) name += QStringLiteral(", chosen");
  if (name != accessibleName()) setAccessibleName(name);  // each change is told once
}

void CardLabel::setVisible(bool visible) {
  if (!visible) UpdateSpokenName(false);  // the value goes before the card does
  QAbstractButton::setVisible(visible);
  UpdateSpokenName(!isHidden());
}

QSize CardLabel::sizeHint() const {
  return CardSizeFor(QFontInfo(font()).pixelSize()).toSize();
}

void CardLabel::resizeEvent(QResizeEvent* event) {
  QAbstractButton::resizeEvent(event);
  face_font_ = FaceFont(CardFontFor(size()));
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
  const QRectF outer(rect());
  if (highlighted_) PaintRing(p, outer, palette().color(QPalette::Highlight));
  const QRectF r = outer.adjusted(kRing, kRing, -kRing, -kRing);
  const double radius = Radius(r);
  const bool hover = isEnabled() && underMouse();
  if (faceDown()) {
    PaintBackCached(p, outer, r, text() == QLatin1String(kFaceDown), face_font_,
                    devicePixelRatioF());
    // Face-down cards can be picked too (the opponent's, for Smackem and Takem).
    if (marked_ || hover) {
      p.setPen(QPen(marked_ ? kMarkedEdge : kHoverEdge, marked_ ? 3 : 2));
      p.drawRoundedRect(r.adjusted(1, 1, -1, -1), radius, radius);
    }
    if (hasFocus()) PaintFocus(p, r, kBackTrim);
    return;
  }
  QPainterPath card;
  card.addRoundedRect(r, radius, radius);
  p.fillPath(card, marked_ ? kMarkedFill : kFaceFill);

  const QFontMetricsF fm(face_font_);
  const double pad_x = face_font_.pixelSize() * kPadX;
  // A bar under the number repeats its size for a glance along the Stack.
  bool ok = false;
  const int number = text().trimmed().toInt(&ok);
  const double bar = std::max(2.0, r.height() * 0.08);
  if (ok && number > 0) {
    const double w = (r.width() - 2 * pad_x) * std::min(number, 100) / 100.0;
    p.fillRect(QRectF(r.left() + pad_x, r.bottom() - bar - std::max(1.5, bar * 0.6), w, bar),
               kMagnitude);
  }

  // Leading blanks place the digits; count them rather than trust text shaping with them.
  const QString face = text();
  int blanks = 0;
  while (blanks < face.size() && face[blanks] == QLatin1Char(' ')) ++blanks;
  const double x = r.left() + pad_x + blanks * fm.horizontalAdvance(QLatin1Char(' '));
  p.setFont(face_font_);
  p.setPen(isEnabled() || marked_ ? kFaceInk : kFaceInkDisabled);
  p.drawText(QRectF(x, r.top(), r.right() - x, r.height() - bar), Qt::AlignVCenter | Qt::AlignLeft,
             face.mid(blanks).trimmed());

  QColor edge = kEdge;
  double pen = 1;
  if (marked_) {
    edge = kMarkedEdge;
    pen = 3;
  } else if (hover) {
    edge = kHoverEdge;
    pen = 2;
  }
  p.setPen(QPen(edge, pen));
  p.setBrush(Qt::NoBrush);
  p.drawRoundedRect(r.adjusted(pen / 2, pen / 2, -pen / 2, -pen / 2), radius, radius);
  if (hasFocus()) PaintFocus(p, r, kHoverEdge);
}

CardBack::CardBack(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize CardBack::sizeHint() const {
  return CardSizeFor(QFontInfo(font()).pixelSize()).toSize();
}

void CardBack::setHighlighted(bool on) {
  if (on == highlighted_) return;
  highlighted_ = on;
  update();
}

void CardBack::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  const QRectF outer(rect());
  const QRectF r = outer.adjusted(kRing, kRing, -kRing, -kRing);
  PaintBack(p, r, false, font());
  if (!highlighted_) return;
  // A ring alone hardly shows against the back's blue: the back lights up too.
  PaintRing(p, outer, palette().color(QPalette::Highlight));
  QColor glow = palette().color(QPalette::Highlight).lighter(150);
  glow.setAlpha(110);
  QPainterPath card;
  card.addRoundedRect(r, Radius(r), Radius(r));
  p.fillPath(card, glow);
}

PromptButton::PromptButton(QWidget* parent) : QPushButton(parent) {
  QFont f;  // the weight only: the size follows the panel's
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

QString PromptButton::Lines(const QString& caption) {
  // By hand: a regular expression would load its library for this alone.
  const QString text = caption.trimmed();
  QString lines;
  lines.reserve(text.size());
  for (qsizetype i = 0; i < text.size();) {
    if (text[i] != QLatin1Char(' ')) {
      lines += text[i++];
      continue;
    }
    const qsizetype start = i;
    while (i < text.size() && text[i] == QLatin1Char(' ')) ++i;
    lines += i - start > 1 ? QLatin1Char('\n') : QLatin1Char(' ');
  }
  return lines;
}

void PromptButton::setStandsOut(bool on) {
  stands_out_ = on;
  update();
}

namespace {

// What wrapping a caption needs of one font: word advances, shared by every button, and the
// height of a block of so many lines.
struct Wrapping {
  QFont font;
  double space = 0;
  // A word's advance, and how far its last letter reaches past it.
  QHash<QString, std::pair<double, double>> words;
  std::map<int, int> heights;         // by line count
  std::bitset<128> checked, missing;  // characters looked for in the font
};

Wrapping& WrappingFor(const QFont& font) {
  static std::vector<std::unique_ptr<Wrapping>> known;
  for (const auto& w : known)
    if (w->font == font) return *w;
  if (known.size() > 8) known.erase(known.begin());  // fonts of sizes long gone
  known.push_back(std::make_unique<Wrapping>());
  known.back()->font = font;
  known.back()->space = QFontMetricsF(font).horizontalAdvance(QLatin1Char(' '));
  return *known.back();
}

// Words of letters and digits with full stops, commas and apostrophes break only at their single
// blanks, and every character is the font's own, so every line is as high as the font.
bool PlainWords(const QString& lines, Wrapping& w, const QFontMetricsF& fm) {
  for (const QChar c : lines) {
    const char16_t u = c.unicode();
    const bool plain = (u >= 'a' && u <= 'z') || (u >= 'A' && u <= 'Z') || (u >= '0' && u <= '9') ||
                       u == ' ' || u == '\n' || u == '.' || u == ',' || u == '\'';
    if (!plain) return false;
    if (!w.checked[u]) {
      w.checked[u] = true;
      w.missing[u] = u != '\n' && !fm.inFont(c);
    }
    if (w.missing[u]) return false;
  }
  return !lines.contains(QLatin1String("  "));
}

// Lines as the text layout wraps them: a word goes on when the line, its blank, the word and
// whatever of its last letter reaches past its advance fit the width.
int WrappedLines(const QString& lines, double width, Wrapping& w, const QFontMetricsF& fm) {
  int count = 0;
  for (const QStringView paragraph : QStringView(lines).split(QLatin1Char('\n'))) {
    double line = -1;  // none yet
    for (const QStringView word : paragraph.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
      const QString key = word.toString();
      auto it = w.words.constFind(key);
      if (it == w.words.cend())
        it = w.words.insert(
            key, {fm.horizontalAdvance(key), std::max(0.0, -fm.rightBearing(word.back()))});
      const auto [advance, overhang] = it.value();
      if (line >= 0 && line + w.space + advance + overhang <= width) {
        line += w.space + advance;
      } else {
        ++count;
        line = advance;
      }
    }
    if (line < 0) ++count;
  }
  return count;
}

}  // namespace

int PromptButton::heightForWidth(int width) const {
  // Laying out wrapped text is slow and the area asks every button at several widths while the
  // window starts: plain captions are wrapped from their words' advances, which every button
  // shares, and their height is that of as many lines of the font.
  const QFontMetricsF fm(font());
  if (text() != measured_text_ || font() != measured_font_) {
    measured_text_ = text();
    measured_font_ = font();
    measured_lines_ = Lines(text());
    plain_ = PlainWords(measured_lines_, WrappingFor(font()), fm);
    heights_.clear();
  }
  auto [known, fresh] = heights_.emplace(width, 0);
  if (!fresh) return known->second;
  const QRect room = TextRect(QRect(0, 0, width, 10000));
  const int flags = Qt::AlignCenter | Qt::TextWordWrap;
  int height = 0;
  if (plain_) {
    Wrapping& w = WrappingFor(font());
    const int n = WrappedLines(measured_lines_, room.width(), w, fm);
    auto [block, new_count] = w.heights.emplace(n, 0);
    if (new_count) {
      const QString sample = QStringLiteral("x\n").repeated(n).chopped(1);
      block->second = fontMetrics().boundingRect(room, flags, sample).height();
    }
    height = block->second;
  } else {
    height = fontMetrics().boundingRect(room, flags, measured_lines_).height();
  }
  known->second = std::max(height + 12, fontMetrics().height() * 2 + 12);
  return known->second;
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
  if (stands_out_ && isEnabled()) {
    option.palette.setColor(QPalette::Button, palette().color(QPalette::Highlight));
    option.palette.setColor(QPalette::ButtonText, palette().color(QPalette::HighlightedText));
  }
  p.drawControl(QStyle::CE_PushButton, option);
  p.drawItemText(TextRect(rect()), Qt::AlignCenter | Qt::TextWordWrap, option.palette, isEnabled(),
                 Lines(text()), QPalette::ButtonText);
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

PromptLine::PromptLine(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void PromptLine::setText(const QString& text) {
  if (text == text_) return;
  text_ = text;
  setAccessibleName(text_);
  update();
}

QSize PromptLine::sizeHint() const {
  return {200, 2 * fontMetrics().lineSpacing() + 4};
}

QSize PromptLine::minimumSizeHint() const {
  // At the window's font: grown texts never hold a shrinking window up.
  return {200, 2 * QFontMetrics(QApplication::font(this)).lineSpacing() + 4};
}

void PromptLine::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) updateGeometry();
}

void PromptLine::paintEvent(QPaintEvent*) {
  QPainter p(this);
  if (!text_.isEmpty()) {  // a strip of its own, so the line reads as the table's voice
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(palette().color(QPalette::AlternateBase));
    p.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
  }
  p.setPen(palette().color(QPalette::WindowText));
  p.drawText(rect().adjusted(8, 2, -8, -2), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap,
             text_);
}

}  // namespace bq::qt
