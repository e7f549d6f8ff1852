#include "ui/qt/game_window.h"

#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMoveEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QStatusBar>
#include <QVBoxLayout>
#include <cmath>
#include <tuple>
#include <type_traits>
#include <vector>

#include "ui/qt/app_paths.h"
#include "ui/qt/card_widget.h"
#include "ui/qt/front_end.h"

namespace bq::qt {
namespace {

constexpr double kBaseWidthTwips = 9105;
constexpr double kBaseHeightTwips = 5235;

std::string Slot(const char* name, int i) {
  return std::string(name) + "(" + std::to_string(i) + ")";
}

const char* const kPrompts[] = {"cmdPlayA",
                                "cmdPlayB",
                                "cmdAWins",
                                "cmdBWins",
                                "cmdCWins",
                                "cmdBothWin",
                                "cmdCTakesDiscard",
                                "cmdCTakesDraw",
                                "cmdCTakesNothing",
                                "cmdBackemC",
                                "cmdSwitchemA",
                                "cmdSwitchemB",
                                "cmdSwitchemC",
                                "cmdSmackemA",
                                "cmdSmackemB",
                                "cmdSmackemC",
                                "cmdTakemA",
                                "cmdTakemB",
                                "cmdTakemC",
                                "cmdQuitReceived",
                                "cmdExitReceived",
                                "cmdInvitationAccepted",
                                "cmdInvitationRejected",
                                "cmdInvitationIgnored",
                                "cmdClickHere"};

QFont Bold(QFont f) {
  f.setBold(true);
  return f;
}

}  // namespace

GameWindow::GameWindow(FrontEnd& front, GameModel& model)
    : front_(front), model_(model), binder_(model) {
  setWindowTitle(QStringLiteral("Bramblequay"));
  setObjectName(QStringLiteral("frmGame"));
  central_ = new QWidget(this);
  central_->installEventFilter(this);
  auto* rows = new QVBoxLayout(central_);
  rows->setContentsMargins(12, 10, 12, 8);
  auto* columns = new QHBoxLayout;
  columns->setSpacing(18);
  columns->addWidget(BuildBoard(), 0, Qt::AlignTop);
  columns->addWidget(BuildSidePanel(), 1);
  rows->addLayout(columns, 1);
  QLabel* prompt = NamedLabel("lblPrompt", central_, Qt::AlignLeft);
  prompt->setWordWrap(true);
  rows->addWidget(prompt);
  setCentralWidget(central_);
  BuildMenus();
  BuildStatusBar();
  SetTabOrder();
  Refresh();
}

QLabel* GameWindow::NamedLabel(const std::string& name, QWidget* parent, Qt::Alignment align) {
  auto* label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setAlignment(align | Qt::AlignVCenter);
  label->setContextMenuPolicy(Qt::PreventContextMenu);
  binder_.Bind(name, label);
  return label;
}

CardLabel* GameWindow::NamedCard(const std::string& name, QWidget* parent) {
  auto* card = new CardLabel(parent);
  binder_.Bind(name, card);
  connect(card, &CardLabel::clicked, this, [this, name] { front_.Click(name); });
  connect(card, &CardLabel::rightClicked, this,
          [this, name](QPoint pos) { front_.RightClick(name, pos); });
  return card;
}

template <typename Button>
Button* GameWindow::NamedButton(const std::string& name, QWidget* parent) {
  auto* button = new Button(parent);
  button->setContextMenuPolicy(Qt::PreventContextMenu);
  if constexpr (std::is_same_v<Button, QRadioButton>) {
    button->setAutoExclusive(false);  // the model decides which one is selected
  }
  if (!binder_.Bind(name, button)) {
    delete button;
    return nullptr;
  }
  connect(button, &QAbstractButton::clicked, this, [this, name] { front_.Click(name); });
  return button;
}

QAction* GameWindow::NamedAction(const std::string& name, QMenu* menu, bool checkable) {
  QAction* action = menu->addAction(QString());
  action->setCheckable(checkable);
  binder_.Bind(name, action);
  connect(action, &QAction::triggered, this, [this, name] { front_.Click(name); });
  return action;
}

QWidget* GameWindow::BuildBoard() {
  auto* board = new QWidget(central_);
  auto* grid = new QGridLayout(board);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(4);
  grid->setVerticalSpacing(2);
  const QFont small = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  const int range_width = QFontMetrics(small).horizontalAdvance(QStringLiteral(" 100")) + 4;

  // Columns: range B, card B, judgement, gap, range A, card A.
  QLabel* head_b = NamedLabel("lblStackB", board, Qt::AlignCenter);
  QLabel* head_a = NamedLabel("lblStackA", board, Qt::AlignCenter);
  head_b->setFont(Bold(head_b->font()));
  head_a->setFont(Bold(head_a->font()));
  grid->addWidget(head_b, 0, 0, 1, 3);
  grid->addWidget(head_a, 0, 4, 1, 2);
  for (int i = 1; i <= kMaxStackSize; ++i) {
    for (const char* range : {"lblRangeB", "lblRangeA"}) {
      QLabel* label = NamedLabel(Slot(range, i), board, Qt::AlignRight);
      label->setFont(small);
      grid->addWidget(label, i, range[8] == 'B' ? 0 : 4);
    }
    QLabel* verdict = NamedLabel(Slot("lblGoodBad", i), board, Qt::AlignCenter);
    verdict->setFont(Bold(small));
    grid->addWidget(verdict, i, 2);
    backs_b_[static_cast<size_t>(i)] = new CardBack(board);
    grid->addWidget(backs_b_[static_cast<size_t>(i)], i, 1);
    NamedCard(Slot("lblCardB", i), board)
        ->setSpokenPrefix(QStringLiteral("Opponent's card %1").arg(i));
    grid->addWidget(binder_.Widget(Slot("lblCardB", i)), i, 1);
    backs_a_[static_cast<size_t>(i)] = new CardBack(board);
    grid->addWidget(backs_a_[static_cast<size_t>(i)], i, 5);
    NamedCard(Slot("lblCardA", i), board)->setSpokenPrefix(QStringLiteral("Your card %1").arg(i));
    grid->addWidget(binder_.Widget(Slot("lblCardA", i)), i, 5);
  }
  grid->setColumnMinimumWidth(0, range_width);
  grid->setColumnMinimumWidth(2, QFontMetrics(small).horizontalAdvance(QLatin1Char('R')) + 8);
  grid->setColumnMinimumWidth(3, 10);
  grid->setColumnMinimumWidth(4, range_width);

  auto setup_row = [&](const char* smackem, const char* takem, int col, int span) {
    auto* row = new QHBoxLayout;
    row->setSpacing(4);
    for (const char* name : {smackem, takem})
      if (QPushButton* b = NamedButton<QPushButton>(name, board)) row->addWidget(b);
    grid->addLayout(row, kMaxStackSize + 1, col, 1, span);
  };
  setup_row("cmdSetupSmackemB", "cmdSetupTakemB", 0, 3);
  setup_row("cmdSetupSmackemA", "cmdSetupTakemA", 4, 2);
  grid->setRowMinimumHeight(kMaxStackSize + 1, 30);
  return board;
}

QWidget* GameWindow::BuildPiles() {
  auto* piles = new QWidget(central_);
  auto* row = new QHBoxLayout(piles);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(14);
  for (auto [heading, pile, spoken] : {std::tuple{"lblDiscard", "lblDiscardPile", "Discard Pile"},
                                       std::tuple{"lblDraw", "lblDrawPile", "Draw Pile"}}) {
    auto* column = new QVBoxLayout;
    column->setSpacing(3);
    QLabel* title = NamedLabel(heading, piles, Qt::AlignCenter);
    title->setFont(Bold(title->font()));
    column->addWidget(title);
    CardLabel* card = NamedCard(pile, piles);
    card->setSpokenPrefix(QString::fromLatin1(spoken));
    column->addWidget(card, 0, Qt::AlignHCenter);
    column->addStretch();
    row->addLayout(column);
  }
  auto* counts = new QGridLayout;
  counts->setVerticalSpacing(2);
  QLabel* title = NamedLabel("lblMoveCount", piles, Qt::AlignCenter);
  title->setFont(Bold(title->font()));
  counts->addWidget(title, 0, 0, 1, 2);
  const char* captions[] = {"You", "Opponent"};
  const char* names[] = {"lblMoveCountA", "lblMoveCountB"};
  for (int i = 0; i < 2; ++i) {
    auto* caption = new QLabel(QString::fromLatin1(captions[i]), piles);
    move_count_captions_[static_cast<size_t>(i)] = caption;
    counts->addWidget(caption, i + 1, 0);
    counts->addWidget(NamedLabel(names[i], piles, Qt::AlignRight), i + 1, 1);
  }
  counts->setRowStretch(3, 1);
  row->addLayout(counts);
  row->addStretch();
  return piles;
}

QWidget* GameWindow::BuildOptions() {
  auto* options = new QWidget(central_);
  auto* grid = new QGridLayout(options);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(8);
  auto frame = [&](const char* name) {
    auto* box = new QGroupBox(options);
    box->setContextMenuPolicy(Qt::PreventContextMenu);
    binder_.Bind(name, box);
    return box;
  };
  QGroupBox* play = frame("frmPlayOptions");
  auto* play_grid = new QGridLayout(play);
  play_grid->setVerticalSpacing(2);
  const char* boxes[] = {"chkStackem", "chkBackem", "chkSwitchem",
                         "chkSmackem", "chkTakem",  "chkRandom"};
  for (int i = 0; i < 6; ++i)
    play_grid->addWidget(NamedButton<QCheckBox>(boxes[i], play), i / 3, i % 3);
  grid->addWidget(play, 0, 0, 1, 3);

  QGroupBox* opponent = frame("frmOpponent");
  auto* opponent_column = new QVBoxLayout(opponent);
  opponent_column->setSpacing(2);
  opponent_column->addWidget(NamedButton<QRadioButton>("optVsComputer", opponent));
  opponent_column->addWidget(NamedButton<QRadioButton>("optVsHuman", opponent));
  opponent_column->addWidget(NamedButton<QPushButton>("cmdSetupRemoteOpponent", opponent));
  grid->addWidget(opponent, 1, 0);
  int col = 1;
  for (auto [name, on, off] : {std::tuple{"frmFastMode", "optFastModeOn", "optFastModeOff"},
                               std::tuple{"frmLearnMode", "optLearnModeOn", "optLearnModeOff"}}) {
    QGroupBox* mode = frame(name);
    auto* column = new QVBoxLayout(mode);
    column->setSpacing(2);
    column->addWidget(NamedButton<QRadioButton>(on, mode));
    column->addWidget(NamedButton<QRadioButton>(off, mode));
    column->addStretch();
    grid->addWidget(mode, 1, col++);
  }
  return options;
}

QWidget* GameWindow::BuildPrompts() {
  auto* area = new QFrame(central_);
  area->setFrameShape(QFrame::StyledPanel);
  area->setFrameShadow(QFrame::Sunken);
  auto* column = new QVBoxLayout(area);
  column->setContentsMargins(6, 6, 6, 6);
  column->setSpacing(4);
  for (const char* name : kPrompts)
    if (PromptButton* b = NamedButton<PromptButton>(name, area)) column->addWidget(b);
  column->addStretch();
  // Room for two two-line prompts (the move button and the computer's), so that the panels
  // above never give way when prompts come and go.
  area->setMinimumHeight(2 * PromptButton().heightForWidth(300) + 16);
  return area;
}

QWidget* GameWindow::BuildSidePanel() {
  auto* panel = new QWidget(central_);
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(10);
  column->addWidget(BuildPiles());
  column->addWidget(BuildOptions());
  auto* buttons = new QHBoxLayout;
  for (const char* name : {"cmdNew", "cmdQuit"}) {
    QPushButton* b = NamedButton<QPushButton>(name, panel);
    b->setMinimumHeight(30);
    buttons->addWidget(b);
  }
  column->addLayout(buttons);
  column->addWidget(BuildPrompts(), 1);
  return panel;
}

void GameWindow::BuildMenus() {
  QMenu* file = menuBar()->addMenu(QString());
  binder_.Bind("mnuFile", file->menuAction());
  for (const char* name : {"mnuFileNewGame", "mnuFileQuitGame", "mnuFileExit"})
    NamedAction(name, file, false);

  QMenu* options = menuBar()->addMenu(QString());
  binder_.Bind("mnuOptions", options->menuAction());
  for (const char* name : {"mnuOptionsStackem", "mnuOptionsBackem", "mnuOptionsSwitchem",
                           "mnuOptionsSmackem", "mnuOptionsTakem", "mnuOptionsRandom"})
    NamedAction(name, options, true);
  options->addSeparator();
  NamedAction("mnuVsComputer", options, true);
  NamedAction("mnuVsHuman", options, true);
  NamedAction("mnuSetupRemoteOpponent", options, false);
  options->addSeparator();
  NamedAction("mnuFastModeOn", options, true);
  NamedAction("mnuFastModeOff", options, true);
  options->addSeparator();
  NamedAction("mnuLearnModeOn", options, true);
  NamedAction("mnuLearnModeOff", options, true);
  options->addSeparator();
  NamedAction("mnuOptionsSound", options, true);

  // Statistics is a command on the bar itself, not a menu.
  QAction* stats = menuBar()->addAction(QString());
  binder_.Bind("mnuStats", stats);
  connect(stats, &QAction::triggered, this, [this] { front_.Click("mnuStats"); });

  QMenu* help = menuBar()->addMenu(QString());
  binder_.Bind("mnuHelp", help->menuAction());
  NamedAction("mnuHelpHowToPlay", help, false);
  NamedAction("mnuHelpAbout", help, false);

  form_popup_ = new QMenu(this);
  form_popup_->setObjectName(QStringLiteral("mnuPopupForm"));
  for (const char* name : {"mnuPopupFileNewGame", "mnuPopupFileQuitGame", "mnuPopupFileExit",
                           "mnuPopupStats", "mnuPopupHelpHowToPlay", "mnuPopupHelpAbout"})
    NamedAction(name, form_popup_, false);
  card_popup_ = new QMenu(this);
  card_popup_->setObjectName(QStringLiteral("mnuPopupCard"));
  NamedAction("mnuPopupCardDiscard", card_popup_, false);
  NamedAction("mnuPopupCardDraw", card_popup_, false);
}

void GameWindow::BuildStatusBar() {
  const int stretch[] = {1, 2, 2, 2};
  for (int i = 1; i <= 4; ++i) {
    auto* panel = new QLabel(statusBar());
    panel->setTextFormat(Qt::PlainText);
    panel->setContentsMargins(4, 0, 4, 0);
    binder_.Bind(Slot("StatusBar1.Panel", i), panel);
    statusBar()->addPermanentWidget(panel, stretch[i - 1]);
  }
  statusBar()->setSizeGripEnabled(false);
}

void GameWindow::SetTabOrder() {
  std::vector<QWidget*> chain;
  auto add = [&](const std::string& name) {
    if (QWidget* w = binder_.Widget(name)) chain.push_back(w);
  };
  for (const char* name : kPrompts) add(name);
  for (const char* name :
       {"cmdNew", "cmdQuit", "cmdSetupSmackemA", "cmdSetupTakemA", "chkStackem", "chkBackem",
        "chkSwitchem", "chkSmackem", "chkTakem", "chkRandom", "optVsComputer", "optVsHuman",
        "cmdSetupRemoteOpponent", "optFastModeOn", "optFastModeOff", "optLearnModeOn",
        "optLearnModeOff", "cmdSetupSmackemB", "cmdSetupTakemB"})
    add(name);
  for (size_t i = 1; i < chain.size(); ++i) setTabOrder(chain[i - 1], chain[i]);
}

void GameWindow::Refresh() {
  binder_.Apply();
  const int n = model_.state().stack_size;
  for (size_t i = 1; i <= kMaxStackSize; ++i) {
    const bool in_stack = static_cast<int>(i) <= n;
    backs_a_[i]->setVisible(in_stack && !model_.lblCardA[i].visible);
    backs_b_[i]->setVisible(in_stack && !model_.lblCardB[i].visible);
  }
  move_count_captions_[0]->setVisible(model_.lblMoveCountA.visible);
  move_count_captions_[1]->setVisible(model_.lblMoveCountB.visible);
  if (placed_ && n != fitted_stack_size_) FitToContents();
}

double GameWindow::Dpi() const {
  const QScreen* s = screen();
  return s != nullptr ? s->logicalDotsPerInchX() : 96.0;
}

QSize GameWindow::BaseSize() const {
  return {static_cast<int>(std::lround(TwipsToPixels(kBaseWidthTwips, Dpi()))),
          static_cast<int>(std::lround(TwipsToPixels(kBaseHeightTwips, Dpi())))};
}

void GameWindow::FitToContents() {
  // A change of Stack size hides or shows ten rows: grow or shrink the window to suit.
  fitted_stack_size_ = model_.state().stack_size;
  // Hidden rows take effect in the layouts through posted requests; settle them now.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  for (QLayout* l : findChildren<QLayout*>()) l->invalidate();
  layout()->activate();
  resize(BaseSize().expandedTo(sizeHint()));
}

void GameWindow::PlaceAtStoredPosition() {
  // Used as stored, even far off the screen: the settings file is the player's to edit.
  move(static_cast<int>(std::lround(TwipsToPixels(model_.window_left(), Dpi()))),
       static_cast<int>(std::lround(TwipsToPixels(model_.window_top(), Dpi()))));
  placed_ = true;
  FitToContents();
}

void GameWindow::moveEvent(QMoveEvent* event) {
  QMainWindow::moveEvent(event);
  if (!placed_) return;
  model_.set_window_position(static_cast<float>(PixelsToTwips(pos().x(), Dpi())),
                             static_cast<float>(PixelsToTwips(pos().y(), Dpi())));
}

void GameWindow::ShowPopup(const std::string& popup, QPoint global_pos) {
  if (popup == "mnuPopupForm") form_popup_->popup(global_pos);
  if (popup == "mnuPopupCard") card_popup_->popup(global_pos);
}

void GameWindow::closeEvent(QCloseEvent* event) {
  if (!front_.finished()) front_.Close("frmGame");
  event->accept();
}

bool GameWindow::OnBackground(QWidget* hit) const {
  // Unnamed panels are the window's background; anything named is a control of its own.
  for (QWidget* w = hit; w != nullptr && w != central_; w = w->parentWidget())
    if (!w->objectName().isEmpty()) return false;
  return true;
}

bool GameWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched != central_) return QMainWindow::eventFilter(watched, event);
  if (event->type() == QEvent::MouseButtonPress) {
    auto* mouse = static_cast<QMouseEvent*>(event);
    if (mouse->button() == Qt::LeftButton &&
        OnBackground(central_->childAt(mouse->position().toPoint()))) {
      const auto keys = mouse->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier |
                                              Qt::AltModifier | Qt::MetaModifier);
      front_.ClickBackground(keys == (Qt::ControlModifier | Qt::AltModifier) &&
                             mouse->buttons() == Qt::LeftButton);
      return true;
    }
  } else if (event->type() == QEvent::ContextMenu) {
    auto* menu = static_cast<QContextMenuEvent*>(event);
    if (OnBackground(central_->childAt(menu->pos()))) {
      front_.RightClick("background", menu->globalPos());
      return true;
    }
  }
  return QMainWindow::eventFilter(watched, event);
}

std::string GameWindow::KeyTarget(int key, Qt::KeyboardModifiers modifiers, quint32 scan_code) {
  const auto keys = modifiers & ~Qt::KeypadModifier;
  if (keys & (Qt::AltModifier | Qt::MetaModifier)) return "";
  const bool shift = keys & Qt::ShiftModifier;
  const bool ctrl = keys & Qt::ControlModifier;
  int digit = -1;
  if (key >= Qt::Key_0 && key <= Qt::Key_9) {
    digit = key - Qt::Key_0;
  } else if (shift) {
    // Shifted digits arrive as the symbols of the layout: US symbols, else the X key codes of
    // the top row (10..19), which do not depend on the layout.
    static constexpr int kShifted[] = {Qt::Key_ParenRight,  Qt::Key_Exclam,    Qt::Key_At,
                                       Qt::Key_NumberSign,  Qt::Key_Dollar,    Qt::Key_Percent,
                                       Qt::Key_AsciiCircum, Qt::Key_Ampersand, Qt::Key_Asterisk,
                                       Qt::Key_ParenLeft};
    for (int d = 0; d < 10; ++d)
      if (kShifted[d] == key) digit = d;
    if (digit < 0 && scan_code >= 10 && scan_code <= 19)
      digit = static_cast<int>(scan_code - 9) % 10;
  }
  if (digit >= 0) {
    const int slot = (digit == 0 ? 10 : digit) + (shift ? 10 : 0);
    return Slot(ctrl ? "lblCardB" : "lblCardA", slot);
  }
  if (shift || ctrl) return "";
  if (key == Qt::Key_D) return "lblDiscardPile";
  if (key == Qt::Key_P) return "lblDrawPile";
  return "";
}

void GameWindow::keyPressEvent(QKeyEvent* event) {
  const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  if (plain && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
    auto* button = qobject_cast<QAbstractButton*>(focusWidget());
    if (button != nullptr && button->isEnabled() && button->isVisible()) {
      button->click();
      return;
    }
  }
  const std::string target = KeyTarget(event->key(), event->modifiers(), event->nativeScanCode());
  if (!target.empty()) {
    if (!event->isAutoRepeat()) front_.Click(target);
    return;
  }
  QMainWindow::keyPressEvent(event);
}

}  // namespace bq::qt
