#include "ui/qt/stats_window.h"

#include <QCloseEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <string>

#include "ui/qt/card_widget.h"
#include "ui/qt/front_end.h"

namespace bq::qt {
namespace {

std::string Indexed(const char* name, int i) {
  return std::string(name) + "(" + std::to_string(i) + ")";
}

QLabel* NewLabel(QWidget* parent, Qt::Alignment align, bool bold = false) {
  auto* label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setAlignment(align | Qt::AlignVCenter);
  label->setContextMenuPolicy(Qt::PreventContextMenu);
  if (bold) {
    QFont f = label->font();
    f.setBold(true);
    label->setFont(f);
  }
  return label;
}

QFrame* Rule(QWidget* parent) {
  auto* line = new QFrame(parent);
  line->setFrameShape(QFrame::HLine);
  line->setFrameShadow(QFrame::Sunken);
  return line;
}

}  // namespace

StatsWindow::StatsWindow(FrontEnd& front, const WindowModel& model, QWidget* parent)
    : ModelWindow(front, model, parent, Qt::Window) {
  binder_.Bind("Caption", this);
  auto* outer = new QVBoxLayout(this);
  outer->setContentsMargins(16, 14, 16, 14);
  outer->setSpacing(12);

  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(6);
  grid->setVerticalSpacing(4);
  outer->addLayout(grid);

  // Equal value columns let the spread headings line up over them.
  const int value_width = fontMetrics().horizontalAdvance(QStringLiteral("100.00%")) + 16;
  auto value = [&](const std::string& name, int row, int col) {
    QLabel* label = NewLabel(this, Qt::AlignHCenter);
    label->setFixedWidth(value_width);
    binder_.Bind(name, label);
    grid->addWidget(label, row, col);
  };
  // The Expert's counts, as narrow as their figures.
  auto count = [&](const std::string& name, int row, int col) {
    QLabel* label = NewLabel(this, Qt::AlignHCenter);
    binder_.Bind(name, label);
    grid->addWidget(label, row, col);
  };
  auto heading = [&](const std::string& name, int row, int col) {
    auto* spread = new SpreadHeading(this);
    binder_.Bind(name, spread);
    grid->addWidget(spread, row, col, 1, 3);
  };
  auto caption = [&](const std::string& name, int row, bool bold = false) {
    QLabel* label = NewLabel(this, Qt::AlignLeft, bold);
    binder_.Bind(name, label);
    grid->addWidget(label, row, 0);
  };

  // Ours on top and at the right: which computer the figures are for, and the Expert's.
  auto over = [&](const std::string& name, int col, int span) {
    QLabel* label = NewLabel(this, Qt::AlignHCenter, true);
    label->setWordWrap(true);
    binder_.Bind(name, label);
    grid->addWidget(label, 0, col, 1, span);
  };
  over("lblClassic", 1, 7);
  over("lblExpert", 9, 3);
  auto* expert_heading = new SpreadHeading(this);
  // Its columns take the counts' width: the window stays no wider than the game's.
  expert_heading->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  binder_.Bind("lblExpertWLT", expert_heading);
  grid->addWidget(expert_heading, 1, 9, 1, 3);
  grid->setColumnMinimumWidth(8, 12);

  constexpr int kTop = 1;  // the rows below start under our headings
  caption("lblResults", kTop, true);
  heading("lblWLT1", kTop, 1);
  heading("lblWLT2", kTop, 5);
  grid->addWidget(Rule(this), kTop + 1, 0, 1, 12);
  const char* rows[] = {"lblNoPlayOptions", "lblStackem", "lblBackem",  "lblSwitchem",
                        "lblSmackem",       "lblTakem",   "lblAllGames"};
  for (int i = 1; i <= 7; ++i) {
    const int row = kTop + i + 1;
    count(Indexed("lblExpertWins", i), row, 9);
    count(Indexed("lblExpertLosses", i), row, 10);
    count(Indexed("lblExpertTies", i), row, 11);
    caption(rows[i - 1], row, i == 7);
    value(Indexed("lblWins", i), row, 1);
    value(Indexed("lblLosses", i), row, 2);
    value(Indexed("lblTies", i), row, 3);
    value(Indexed("lblWinsPct", i), row, 5);
    value(Indexed("lblLossesPct", i), row, 6);
    value(Indexed("lblTiesPct", i), row, 7);
  }
  grid->setColumnMinimumWidth(4, 24);
  grid->addWidget(Rule(this), kTop + 9, 0, 1, 12);
  caption("lblStreaks", kTop + 10, true);
  heading("lblWLT3", kTop + 10, 1);
  caption("lblCurrent", kTop + 11);
  value("lblWStreak", kTop + 11, 1);
  value("lblLStreak", kTop + 11, 2);
  value("lblTStreak", kTop + 11, 3);
  caption("lblConsecutive", kTop + 12);
  value(Indexed("lblWins", 8), kTop + 12, 1);
  value(Indexed("lblLosses", 8), kTop + 12, 2);
  value(Indexed("lblTies", 8), kTop + 12, 3);
  count("lblExpertWStreak", kTop + 11, 9);
  count("lblExpertLStreak", kTop + 11, 10);
  count("lblExpertTStreak", kTop + 11, 11);
  count(Indexed("lblExpertWins", 8), kTop + 12, 9);
  count(Indexed("lblExpertLosses", 8), kTop + 12, 10);
  count(Indexed("lblExpertTies", 8), kTop + 12, 11);
  grid->setColumnStretch(0, 1);

  // A screen reader reads each figure with its row and column, as a table.
  auto caption_of = [&model](const char* name) {
    const Control* c = model.Find(name);
    return c != nullptr ? SpokenText(c->caption) : QString();
  };
  const char* columns[] = {"Wins", "Losses", "Ties", "Wins %", "Losses %", "Ties %"};
  const char* figures[] = {"lblWins",    "lblLosses",    "lblTies",
                           "lblWinsPct", "lblLossesPct", "lblTiesPct"};
  auto figure = [this](const std::string& name, const QString& row, const char* column) {
    const QString where = row + QStringLiteral(", ") + QString::fromLatin1(column);
    binder_.SetSpokenName(name, [where](const QString& text) { return where + ": " + text; });
  };
  for (int i = 1; i <= 7; ++i)
    for (int c = 0; c < 6; ++c) figure(Indexed(figures[c], i), caption_of(rows[i - 1]), columns[c]);
  for (int c = 0; c < 3; ++c) {
    figure(Indexed(figures[c], 8), caption_of("lblConsecutive"), columns[c]);
    figure(std::string("lbl") + "WLT"[c] + "Streak", caption_of("lblCurrent"), columns[c]);
  }
  const QString expert = caption_of("lblExpert") + QStringLiteral(", ");
  const char* expert_figures[] = {"lblExpertWins", "lblExpertLosses", "lblExpertTies"};
  for (int i = 1; i <= 7; ++i)
    for (int c = 0; c < 3; ++c)
      figure(Indexed(expert_figures[c], i), expert + caption_of(rows[i - 1]), columns[c]);
  for (int c = 0; c < 3; ++c) {
    figure(Indexed(expert_figures[c], 8), expert + caption_of("lblConsecutive"), columns[c]);
    figure(std::string("lblExpert") + "WLT"[c] + "Streak", expert + caption_of("lblCurrent"),
           columns[c]);
  }

  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  for (const char* name : {"cmdShowOtherStats", "cmdClearStats", "cmdCloseStats"}) {
    auto* button = new QPushButton(this);
    button->setAutoDefault(true);
    button->setContextMenuPolicy(Qt::PreventContextMenu);
    binder_.Bind(name, button);
    const std::string full = std::string("frmStats.") + name;
    connect(button, &QPushButton::clicked, this, [this, full] { front_.Click(full); });
    buttons->addWidget(button);
  }
  outer->addLayout(buttons);
  binder_.Apply();
  if (QWidget* other = binder_.Widget("cmdShowOtherStats"))
    other->setAccessibleDescription(QStringLiteral(
        "Shows the results against the other kind of opponent, the computer or people"));
}

ConfirmClearDialog::ConfirmClearDialog(FrontEnd& front, const WindowModel& model, QWidget* parent)
    : ModelWindow(front, model, parent, Qt::Dialog) {
  setModal(true);
  binder_.Bind("Caption", this);
  auto* outer = new QVBoxLayout(this);
  outer->setContentsMargins(18, 16, 18, 14);
  outer->setSpacing(14);
  QLabel* question = NewLabel(this, Qt::AlignCenter);
  question->setWordWrap(true);
  binder_.Bind("lblConfirm", question);
  outer->addWidget(question);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (const char* name : {"cmdYes", "cmdNo"}) {
    auto* button = new QPushButton(this);
    button->setAutoDefault(true);
    button->setMinimumWidth(90);
    binder_.Bind(name, button);
    const std::string full = std::string("frmConfirmClearStats.") + name;
    connect(button, &QPushButton::clicked, this, [this, full] { front_.Click(full); });
    buttons->addWidget(button);
  }
  buttons->addStretch();
  outer->addLayout(buttons);
  binder_.Apply();
}

void ConfirmClearDialog::reject() {
  if (front_.app().IsOpen("frmConfirmClearStats")) front_.Close("frmConfirmClearStats");
  QDialog::reject();
}

}  // namespace bq::qt
