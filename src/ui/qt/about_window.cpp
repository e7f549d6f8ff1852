#include "ui/qt/about_window.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShowEvent>

#include "ui/qt/generic_window.h"

namespace bq::qt {

AboutWindow::AboutWindow(FrontEnd& front, const WindowModel& model, QWidget* parent)
    : ModelWindow(front, model, parent, Qt::Dialog) {
  binder_.Bind("Caption", this);
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(18, 16, 18, 14);
  grid->setHorizontalSpacing(16);
  grid->setVerticalSpacing(4);

  auto* icon = new QLabel(this);
  binder_.Bind("picIcon", icon);
  icon->setAlignment(Qt::AlignTop | Qt::AlignHCenter);
  grid->addWidget(icon, 0, 0, 6, 1);

  int row = 0;
  auto label = [&](const char* name) {
    auto* l = new ClickableLabel(this);
    l->setTextFormat(Qt::PlainText);
    l->setTextInteractionFlags(Qt::TextSelectableByMouse);
    binder_.Bind(name, l);
    grid->addWidget(l, row++, 1);
    return l;
  };
  QLabel* title = label("lblTitle");
  QFont big = title->font();
  big.setBold(true);
  big.setPointSizeF(big.pointSizeF() * 1.4);
  title->setFont(big);
  label("lblVersion");
  label("lblDescription");  // one line, however wide
  label("lblCompany");
  ClickableLabel* website = label("lblWebsite");
  // Drawn as the desktop draws a link; the click itself is the model's.
  website->setTextInteractionFlags(Qt::NoTextInteraction);
  website->setCursor(Qt::PointingHandCursor);
  website->setFocusPolicy(Qt::TabFocus);
  QFont underlined = website->font();
  underlined.setUnderline(true);
  website->setFont(underlined);
  QPalette link = website->palette();
  link.setColor(QPalette::WindowText, link.color(QPalette::Link));
  website->setPalette(link);
  connect(website, &ClickableLabel::clicked, this,
          [this] { front_.Click(name() + ".lblWebsite"); });
  QLabel* email = label("lblEmail");
  email->setWordWrap(true);
  email->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('n')) * 40);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  auto* ok = new QPushButton(this);
  binder_.Bind("cmdOK", ok);
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, [this] { front_.Click(name() + ".cmdOK"); });
  buttons->addWidget(ok);
  grid->addLayout(buttons, row + 1, 0, 1, 2);
  grid->setRowMinimumHeight(row, 10);

  binder_.Apply();
  // After the first refresh: an empty caption would clear the picture.
  icon->setPixmap(QApplication::windowIcon().pixmap(64, 64));
}

void AboutWindow::showEvent(QShowEvent* event) {
  ModelWindow::showEvent(event);
  if (event->spontaneous() || parentWidget() == nullptr) return;
  // Over the middle of the game window, as a dialog of it.
  adjustSize();
  const QRect game = parentWidget()->window()->frameGeometry();
  move(game.center() - QPoint(width() / 2, height() / 2));
}

}  // namespace bq::qt
