#include "ui/qt/side_panel.h"

#include <QApplication>
#include <QCheckBox>
#include <QEvent>
#include <QFontInfo>
#include <QLabel>
#include <QLayout>
#include <QProxyStyle>
#include <QRadioButton>
#include <algorithm>
#include <cmath>

#include "ui/qt/board_table.h"

namespace bq::qt {

class ScaledIndicators : public QProxyStyle {
 public:
  double scale = 1;
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override {
    const int natural = QProxyStyle::pixelMetric(metric, option, widget);
    switch (metric) {
      case PM_IndicatorWidth:
      case PM_IndicatorHeight:
      case PM_ExclusiveIndicatorWidth:
      case PM_ExclusiveIndicatorHeight:
        return static_cast<int>(std::lround(natural * scale));
      default:
        return natural;
    }
  }
};

SidePanel::SidePanel(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
}

QSize SidePanel::Measured() {
  layout()->invalidate();
  layout()->activate();
  return {layout()->sizeHint().width() + static_cast<int>(extra_ * scale_),
          layout()->minimumSize().height()};
}

void SidePanel::Measure(int extra) {
  extra_ = extra;
  SetScale(1);
  base_ = Measured();
  // Fonts at the smallest size are not needed for the first frame: in proportion until then.
  small_ = (QSizeF(base_) * kSmallest).toSize();
  updateGeometry();
}

void SidePanel::MeasureSmallest() {
  if (small_measured_) return;
  small_measured_ = true;
  const double now = scale_;
  SetScale(kSmallest);
  small_ = Measured();
  SetScale(now);
  Measured();
  updateGeometry();
}

QSizeF SidePanel::SizeAt(double scale) const {
  if (scale >= 1) return QSizeF(base_) * scale;
  const double t = (scale - kSmallest) / (1 - kSmallest);
  return QSizeF(small_) + (QSizeF(base_) - QSizeF(small_)) * std::max(0.0, t);
}

double SidePanel::FitScale(const BoardTable& table, QSize room, int line_height) {
  // Larger faces by a margin once the cards have grown past their comfortable size, by that of
  // the texts on the table below it.
  constexpr double kTextPerFace = 1 / 1.3, kBesidePerFace = 0.9;
  const double ui = QFontInfo(QApplication::font(this)).pixelSize();
  // Down to here the texts keep the window's font, and the panel its size there.
  const double same_font = 1 - 0.5 / ui;
  auto fits = [&](double s) {
    const QSizeF side = s >= same_font && s < 1 ? QSizeF(base_) : SizeAt(s);
    const QSize rest(room.width() - static_cast<int>(std::ceil(side.width())),
                     room.height() - static_cast<int>(std::ceil(line_height * s)));
    return side.height() <= rest.height() &&
           table.FitFont(rest, table.stackSize()) * (s < 1 ? kBesidePerFace : kTextPerFace) >=
               ui * s;
  };
  // Below the window's font the panel's size comes from its measure at the smallest, which the
  // window only needs when the texts must shrink.
  double low = same_font, high = 4;
  if (!fits(same_font)) {
    MeasureSmallest();
    low = kSmallest;
    high = same_font;
  }
  while (high - low > 0.02) {
    const double mid = (low + high) / 2;
    (fits(mid) ? low : high) = mid;
  }
  return low;
}

void SidePanel::SetScale(double scale) {
  scale = std::max(kSmallest, scale);
  const int ui = QFontInfo(QApplication::font(this)).pixelSize();
  const int px = static_cast<int>(std::lround(ui * scale));
  if (px == QFontInfo(font()).pixelSize() && scale_ == scale) return;
  scale_ = scale;
  QFont f;  // the size only: bold captions stay bold
  if (px != ui) f.setPixelSize(px);
  setFont(f);
  // The boxes and dots grow with their captions. The style that draws them so is made only when
  // the texts first leave the desktop's size, which keeps it out of the start.
  if (indicators_ == nullptr && px != ui) {
    indicators_ = new ScaledIndicators;
    indicators_->setParent(this);
    for (QAbstractButton* b : findChildren<QAbstractButton*>())
      if (qobject_cast<QCheckBox*>(b) != nullptr || qobject_cast<QRadioButton*>(b) != nullptr)
        b->setStyle(indicators_);
  }
  if (indicators_ != nullptr) indicators_->scale = static_cast<double>(px) / std::max(1, ui);
  updateGeometry();
}

QSize SidePanel::sizeHint() const {
  const QSize natural = layout()->sizeHint();
  return {std::max(small_.width(), natural.width() + static_cast<int>(extra_ * scale_)),
          std::max(small_.height(), natural.height())};
}

MoveList::MoveList(QWidget* parent) : QFrame(parent) {
  setFrameShape(QFrame::StyledPanel);
  setFrameShadow(QFrame::Sunken);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
  title_ = new QLabel(QStringLiteral("Moves"), this);
  QFont bold;
  bold.setBold(true);
  title_->setFont(bold);
  for (int i = 1; i <= kEntries; ++i) {
    auto* label = new QLabel(this);
    label->resize(label->size());  // placed by Arrange, never measured for its own size
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    // The newest stands out; the older ones step back.
    if (i > 1) label->setForegroundRole(QPalette::PlaceholderText);
    entries_[static_cast<size_t>(i)] = label;
  }
}

void MoveList::Arrange() {
  const QRect inner = contentsRect().adjusted(6, 4, -6, -4);
  int y = inner.top();
  const int title_h = title_->sizeHint().height();
  title_->setGeometry(inner.left(), y, inner.width(), title_h);
  y += title_h + 2;
  bool full = false;
  for (int i = 1; i <= kEntries; ++i) {
    QLabel* label = entries_[static_cast<size_t>(i)];
    int h = label->text().isEmpty() ? 0 : label->heightForWidth(inner.width());
    // Whole entries only, so that none reads as a sentence cut short; the newest alone may end
    // at a line's end when even it does not fit. Beyond the bottom an entry waits, out of sight,
    // for more room.
    const int room = full ? 0 : std::max(0, inner.y() + inner.height() - y);
    if (h > room) {
      const int line = label->fontMetrics().lineSpacing();
      h = i == 1 ? room / line * line : 0;
      full = true;  // an older entry never shows without the one before it
    }
    label->setGeometry(inner.left(), y, inner.width(), h);
    y += h + (h > 0 ? 3 : 0);
  }
}

QSize MoveList::sizeHint() const {
  return {200, minimumSizeHint().height()};
}

QSize MoveList::minimumSizeHint() const {
  // The title and the newest move's first line: at the smallest window there is no more room.
  return {120,
          title_->sizeHint().height() + 2 + fontMetrics().lineSpacing() + 8 + 2 * frameWidth()};
}

void MoveList::resizeEvent(QResizeEvent* event) {
  QFrame::resizeEvent(event);
  Arrange();
}

void MoveList::changeEvent(QEvent* event) {
  QFrame::changeEvent(event);
  if (event->type() == QEvent::FontChange) Arrange();
}

}  // namespace bq::qt
