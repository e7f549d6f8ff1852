#include "ui/qt/generic_window.h"

#include <QCloseEvent>
#include <QFontInfo>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/qt/front_end.h"

namespace bq::qt {

void ClickableLabel::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
    emit clicked();
  QLabel::mouseReleaseEvent(event);
}

GenericWindow::GenericWindow(FrontEnd& front, const WindowModel& model, QWidget* parent)
    : ModelWindow(front, model, parent, Qt::Window) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 14, 16, 14);
  column->setSpacing(6);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (const NamedControl& nc : model.Controls()) {
    const std::string full = name() + "." + nc.name;
    if (nc.name == "Caption") {
      binder_.Bind(nc.name, this);
    } else if (nc.name.rfind("cmd", 0) == 0) {
      auto* button = new QPushButton(this);
      button->setAutoDefault(true);
      binder_.Bind(nc.name, button);
      connect(button, &QPushButton::clicked, this, [this, full] { front_.Click(full); });
      buttons->addWidget(button);
    } else {
      auto* label = new ClickableLabel(this);
      label->setTextFormat(Qt::PlainText);
      label->setWordWrap(true);
      binder_.Bind(nc.name, label);
      connect(label, &ClickableLabel::clicked, this, [this, full] { front_.Click(full); });
      column->addWidget(label);
    }
  }
  column->addStretch();
  column->addLayout(buttons);
  binder_.Apply();
  // The title bar shows the caption whole: its font is often bold and larger than ours, and the
  // bar's icon and buttons stand beside it.
  QFont title = font();
  title.setBold(true);
  title.setPixelSize(QFontInfo(font()).pixelSize() * 6 / 5);
  const QFontMetrics bar(title);
  setMinimumWidth(bar.horizontalAdvance(windowTitle()) + 8 * bar.height());
}

}  // namespace bq::qt
