#include "ui/qt/communicate_dialog.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace bq::qt {

CommunicateDialog::CommunicateDialog(FrontEnd& front, const WindowModel& model, QWidget* parent)
    : ModelWindow(front, model, parent, Qt::Dialog) {
  binder_.Bind("Caption", this);
  auto label = [this](const char* name, Qt::Alignment align) {
    auto* l = new QLabel(this);
    l->setTextFormat(Qt::PlainText);
    l->setAlignment(align | Qt::AlignVCenter);
    binder_.Bind(name, l);
    return l;
  };
  auto edit = [this](const char* name) {
    auto* e = new QLineEdit(this);
    e->setMinimumWidth(160);
    binder_.Bind(name, e);
    const std::string full = this->name() + "." + name;
    connect(e, &QLineEdit::textEdited, this,
            [this, full](const QString& text) { front_.Type(full, text.toStdString()); });
    connect(e, &QLineEdit::returnPressed, this,
            [this] { front_.Click(this->name() + ".cmdSend"); });
    return e;
  };
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 14, 16, 14);
  column->addWidget(label("lblInstructions", Qt::AlignLeft));
  auto* grid = new QGridLayout;
  grid->addWidget(label("lblIPAddress", Qt::AlignRight), 0, 1);
  grid->addWidget(label("lblPortNumber", Qt::AlignLeft), 0, 2);
  grid->addWidget(label("lblYou", Qt::AlignLeft), 1, 0);
  grid->addWidget(edit("txtIPA"), 1, 1);
  grid->addWidget(edit("txtPortA"), 1, 2);
  grid->addWidget(label("lblOpponent", Qt::AlignLeft), 2, 0);
  grid->addWidget(edit("txtIPB"), 2, 1);
  grid->addWidget(edit("txtPortB"), 2, 2);
  column->addLayout(grid);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (const char* name : {"cmdSend", "cmdCancel", "cmdHelp"}) {
    auto* b = new QPushButton(this);
    b->setAutoDefault(true);
    binder_.Bind(name, b);
    const std::string full = this->name() + "." + name;
    connect(b, &QPushButton::clicked, this, [this, full] { front_.Click(full); });
    buttons->addWidget(b);
  }
  column->addLayout(buttons);
  binder_.Apply();
}

}  // namespace bq::qt
