#include "ui/qt/how_to_window.h"

#include <QCoreApplication>
#include <QDir>
#include <QLabel>
#include <QPixmap>
#include <QResizeEvent>
#include <QScrollBar>
#include <QShowEvent>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace bq::qt {
namespace {

// Rounded alike for every piece, so that they meet without a gap or an overlap.
int Px(int twips) {
  return static_cast<int>(std::floor(twips / double(HowToModel::kTwipsPerPixel) + 0.5));
}

QLabel* Picture(QWidget* parent, int width_twips, int height_twips) {
  auto* label = new QLabel(parent);
  label->setFixedSize(Px(width_twips), Px(height_twips));
  return label;
}

}  // namespace

HowToWindow::HowToWindow(FrontEnd& front, HowToModel& model, QWidget* parent)
    : ModelWindow(front, model, parent, Qt::Window), model_(model) {
  binder_.Bind("Caption", this);
  text_ = Picture(this, HowToModel::kTextWidth, HowToModel::kTextHeight);
  shot_ = Picture(this, HowToModel::kShotWidth, HowToModel::kShotHeight);
  label_ = new QLabel(this);
  label_->setTextFormat(Qt::PlainText);
  label_->setAlignment(Qt::AlignCenter);
  label_->setFixedSize(Px(HowToModel::kTextWidth), Px(HowToModel::kLabelHeight));
  bar_ = new QScrollBar(Qt::Vertical, this);
  binder_.Bind("ImgText", text_);
  binder_.Bind("Label1", label_);
  binder_.Bind("imgScreenShot", shot_);
  binder_.Bind("VScroll", bar_);
  bar_->setSingleStep(HowToModel::kSmallChange);
  bar_->setPageStep(HowToModel::kLargeChange);
  connect(bar_, &QScrollBar::valueChanged, this, [this](int position) {
    model_.Scroll(position);
    Refresh();
  });
  binder_.Apply();
  // After the first refresh: an empty caption would clear the picture.
  const QDir data(front.data_dir());
  text_->setPixmap(QPixmap(data.filePath(QStringLiteral("howto-rules.jpg"))));
  shot_->setPixmap(QPixmap(data.filePath(QStringLiteral("howto-screenshot.jpg"))));
  setMinimumSize(Px(HowToModel::kTextWidth) / 2, Px(HowToModel::kHeight) / 4);
}

QSize HowToWindow::OpeningSize() {
  return {Px(HowToModel::kWidth), Px(HowToModel::kHeight)};
}

void HowToWindow::showEvent(QShowEvent* event) {
  if (!event->spontaneous()) resize(OpeningSize());
  ModelWindow::showEvent(event);
}

void HowToWindow::Refresh() {
  binder_.Apply();
  {
    const QSignalBlocker quiet(bar_);
    bar_->setRange(0, std::max(model_.ScrollMax(), 0));
    bar_->setValue(model_.Position());
  }
  Layout();
}

void HowToWindow::Layout() {
  const int page_width = width() - bar_->sizeHint().width();
  bar_->setGeometry(page_width, 0, bar_->sizeHint().width(), height());
  text_->move(0, Px(model_.Top("ImgText")));
  label_->move(0, Px(model_.Top("Label1")));
  shot_->move((text_->width() - shot_->width()) / 2, Px(model_.Top("imgScreenShot")));
}

void HowToWindow::resizeEvent(QResizeEvent* event) {
  ModelWindow::resizeEvent(event);
  model_.Resize(event->size().height() * HowToModel::kTwipsPerPixel);
  Refresh();
}

void HowToWindow::wheelEvent(QWheelEvent* event) {
  // The wheel anywhere on the page turns it, as over the bar.
  QCoreApplication::sendEvent(bar_, event);
}

}  // namespace bq::qt
