#include "ui/qt/game_window.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
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
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>
#include <cmath>
#include <tuple>
#include <type_traits>
#include <vector>

#include "ui/qt/app_paths.h"
#include "ui/qt/board_speech.h"
#include "ui/qt/board_table.h"
#include "ui/qt/card_widget.h"
#include "ui/qt/front_end.h"
#include "ui/qt/side_panel.h"

namespace bq::qt {
namespace {

constexpr double kBaseWidthTwips = 9105;
constexpr double kBaseHeightTwips = 5235;
constexpr int kColumnSpacing = 12;
constexpr int kRowSpacing = 4;

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
  auto* grid = new QGridLayout(central_);
  grid->setContentsMargins(8, 6, 8, 4);
  grid->setHorizontalSpacing(kColumnSpacing);
  grid->setVerticalSpacing(kRowSpacing);
  grid->addWidget(BuildTable(), 0, 0);
  grid->addWidget(BuildSidePanel(), 0, 1);
  grid->setColumnStretch(0, 1);
  grid->setRowStretch(0, 1);
  prompt_line_ = new PromptLine(central_);
  binder_.Bind("lblPrompt", prompt_line_);
  grid->addWidget(prompt_line_, 1, 0, 1, 2);
  setCentralWidget(central_);
  BuildMenus();
  BuildStatusBar();
  SetTabOrder();
  speech_ = new BoardSpeech(this, model_, binder_, *table_);
  // A right click on a button does nothing, so it leaves the focus where it was: no ring.
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget* old, QWidget* now) {
    static bool restoring = false;  // giving it back is a focus change too
    if (restoring || now == nullptr || now->window() != this ||
        !qobject_cast<QAbstractButton*>(now) || QGuiApplication::mouseButtons() != Qt::RightButton)
      return;
    restoring = true;
    if (old != nullptr)
      old->setFocus(Qt::OtherFocusReason);
    else
      now->clearFocus();
    restoring = false;
  });
  highlight_timer_ = new QTimer(this);
  highlight_timer_->setSingleShot(true);
  highlight_timer_->setInterval(1600);
  connect(highlight_timer_, &QTimer::timeout, this, [this] {
    brief_shown_ = false;
    RefreshHighlights();
  });
  Refresh();
  // As wide as the options need with their captions bold, as they are while a game runs, so
  // the panel never widens during a game: two columns of check boxes, each as much wider as
  // its widest caption grows in bold.
  int bolder = 0;
  for (auto* box : options_->findChildren<QCheckBox*>()) {
    const QString text = box->text().remove(QLatin1Char('&'));
    bolder = std::max(bolder, QFontMetrics(Bold(box->font())).horizontalAdvance(text) -
                                  box->fontMetrics().horizontalAdvance(text));
  }
  side_->Measure(2 * bolder);
  prompt_line_height_ = prompt_line_->sizeHint().height();
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

QWidget* GameWindow::BuildTable() {
  table_ = new BoardTable(central_);
  BoardTable& t = *table_;
  const QFont small = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  t.b.heading = NamedLabel("lblStackB", &t, Qt::AlignCenter);
  t.a.heading = NamedLabel("lblStackA", &t, Qt::AlignCenter);
  for (QLabel* head : {t.a.heading, t.b.heading}) head->setFont(Bold(head->font()));
  for (int i = 1; i <= kMaxStackSize; ++i) {
    const auto k = static_cast<size_t>(i);
    for (auto [side, range, card, spoken] :
         {std::tuple{&t.b, "lblRangeB", "lblCardB", "Opponent's card %1"},
          std::tuple{&t.a, "lblRangeA", "lblCardA", "Your card %1"}}) {
      side->ranges[k] = NamedLabel(Slot(range, i), &t, Qt::AlignRight);
      side->ranges[k]->setFont(small);
      side->backs[k] = new CardBack(&t);
      side->cards[k] = NamedCard(Slot(card, i), &t);
      side->cards[k]->setSpokenPrefix(QString::fromLatin1(spoken).arg(i));
    }
    t.verdicts[k] = NamedLabel(Slot("lblGoodBad", i), &t, Qt::AlignCenter);
    t.verdicts[k]->setFont(Bold(small));
  }
  t.b.setups = {NamedButton<QPushButton>("cmdSetupSmackemB", &t),
                NamedButton<QPushButton>("cmdSetupTakemB", &t)};
  t.a.setups = {NamedButton<QPushButton>("cmdSetupSmackemA", &t),
                NamedButton<QPushButton>("cmdSetupTakemA", &t)};
  size_t p = 0;
  for (auto [heading, pile, spoken] : {std::tuple{"lblDiscard", "lblDiscardPile", "Discard Pile"},
                                       std::tuple{"lblDraw", "lblDrawPile", "Draw Pile"}}) {
    t.pile_headings[p] = NamedLabel(heading, &t, Qt::AlignCenter);
    t.pile_headings[p]->setFont(Bold(t.pile_headings[p]->font()));
    t.piles[p] = NamedCard(pile, &t);
    t.piles[p]->setSpokenPrefix(QString::fromLatin1(spoken));
    ++p;
  }
  t.count_heading = NamedLabel("lblMoveCount", &t, Qt::AlignLeft);
  t.count_heading->setFont(Bold(t.count_heading->font()));
  const char* captions[] = {"You", "Opponent"};
  const char* names[] = {"lblMoveCountA", "lblMoveCountB"};
  for (size_t i = 0; i < 2; ++i) {
    t.count_captions[i] = new QLabel(QString::fromLatin1(captions[i]), &t);
    t.counts[i] = NamedLabel(names[i], &t, Qt::AlignRight);
  }
  t.Finish();
  return table_;
}

QWidget* GameWindow::BuildOptions() {
  auto* options = new QWidget(central_);
  auto* grid = new QGridLayout(options);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(6);
  auto frame = [&](const char* name) {
    auto* box = new QGroupBox(options);
    box->setContextMenuPolicy(Qt::PreventContextMenu);
    binder_.Bind(name, box);
    return box;
  };
  QGroupBox* play = frame("frmPlayOptions");
  auto* play_grid = new QGridLayout(play);
  play_grid->setVerticalSpacing(2);
  play_grid->setContentsMargins(8, 4, 8, 4);
  const char* boxes[] = {"chkStackem", "chkBackem", "chkSwitchem",
                         "chkSmackem", "chkTakem",  "chkRandom"};
  for (int i = 0; i < 6; ++i)
    play_grid->addWidget(NamedButton<QCheckBox>(boxes[i], play), i / 3, i % 3);
  grid->addWidget(play, 0, 0, 1, 3);

  QGroupBox* opponent = frame("frmOpponent");
  auto* opponent_column = new QVBoxLayout(opponent);
  opponent_column->setSpacing(2);
  opponent_column->setContentsMargins(8, 4, 8, 4);
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
    column->setContentsMargins(8, 4, 8, 4);
    column->addWidget(NamedButton<QRadioButton>(on, mode));
    column->addWidget(NamedButton<QRadioButton>(off, mode));
    column->addStretch();
    grid->addWidget(mode, 1, col++);
  }
  return options;
}

QWidget* GameWindow::BuildPrompts() {
  prompts_ = new PromptArea(central_);
  for (const char* name : kPrompts) {
    if (PromptButton* b = NamedButton<PromptButton>(name, prompts_)) {
      const std::string n = name;
      prompts_->Add(b, n == "cmdPlayA" || n == "cmdPlayB");
      b->setStandsOut(n == "cmdAWins" || n == "cmdBWins" || n == "cmdCWins" || n == "cmdBothWin");
    }
  }
  return prompts_;
}

QWidget* GameWindow::BuildSidePanel() {
  auto* panel = side_ = new SidePanel(central_);
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(6);
  options_ = BuildOptions();
  column->addWidget(options_);
  auto* buttons = new QHBoxLayout;
  for (const char* name : {"cmdNew", "cmdQuit"})
    buttons->addWidget(NamedButton<QPushButton>(name, panel));
  column->addLayout(buttons);
  column->addWidget(BuildPrompts());
  move_list_ = new MoveList(panel);
  for (int i = 1; i <= MoveList::kEntries; ++i)
    binder_.Bind(Slot("lblMoveList", i), move_list_->entry(i));
  column->addWidget(move_list_, 1);
  return panel;
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
  BoardTable& t = *table_;
  for (size_t i = 1; i <= kMaxStackSize; ++i) {
    const bool in_stack = static_cast<int>(i) <= n;
    t.a.backs[i]->setVisible(in_stack && !model_.lblCardA[i].visible);
    t.b.backs[i]->setVisible(in_stack && !model_.lblCardB[i].visible);
  }
  t.count_captions[0]->setVisible(model_.lblMoveCountA.visible);
  t.count_captions[1]->setVisible(model_.lblMoveCountB.visible);
  if (n != t.stackSize()) t.SetStackSize(n);
  prompts_->Arrange(!model_.fast_mode() || model_.cmdPlayB.visible);
  move_list_->Arrange();
  RefreshHighlights();
  speech_->Refresh();
  if (placed_ && n != fitted_stack_size_) FitToContents();
}

void GameWindow::RefreshHighlights() {
  if (model_.highlight_serial() != highlight_serial_) {
    highlight_serial_ = model_.highlight_serial();
    brief_shown_ = true;
    highlight_timer_->start();
  }
  auto lit = [this](const Control& c) {
    return c.highlight == kHighlightSteady || (c.highlight == kHighlightBrief && brief_shown_);
  };
  BoardTable& t = *table_;
  for (size_t i = 1; i <= kMaxStackSize; ++i) {
    t.a.cards[i]->setHighlighted(lit(model_.lblCardA[i]));
    t.a.backs[i]->setHighlighted(lit(model_.lblCardA[i]));
    t.b.cards[i]->setHighlighted(lit(model_.lblCardB[i]));
    t.b.backs[i]->setHighlighted(lit(model_.lblCardB[i]));
  }
  t.piles[0]->setHighlighted(lit(model_.lblDiscardPile));
  t.piles[1]->setHighlighted(lit(model_.lblDrawPile));
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
  // A change of Stack size adds or takes away ten rows: the window grows or shrinks by what they
  // need, and comes back to the size it had before when the Stack size does.
  const int old_n = fitted_stack_size_;
  const int n = model_.state().stack_size;
  fitted_stack_size_ = n;
  // Before the new rows' minimum can stretch the window.
  if (old_n > 0 && !isMaximized() && !isFullScreen())
    size_for_[static_cast<size_t>(old_n)] = size();
  // Grown texts would hold the window up; the resize grows them again as far as it allows.
  if (!isMaximized() && !isFullScreen()) ScaleTexts(1);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  central_->layout()->invalidate();
  central_->layout()->activate();
  layout()->invalidate();
  layout()->activate();
  if (isMaximized() || isFullScreen()) return;
  QSize want = size_for_[static_cast<size_t>(n)];
  if (!want.isValid()) {
    want = old_n > 0 ? size() + table_->PreferredSize(n) - table_->PreferredSize(old_n)
                     : BaseSize().expandedTo(sizeHint());
    if (const QScreen* s = screen()) {
      // Before the window is first shown its frame is not known yet: allow for a title bar.
      QSize frame = frameGeometry().size() - size();
      if (frame.height() <= 0) frame = {0, style()->pixelMetric(QStyle::PM_TitleBarHeight) + 8};
      want = want.boundedTo(s->availableGeometry().size() - frame);
    }
  }
  resize(want.expandedTo(minimumSizeHint()));
}

void GameWindow::Rescale() {
  const QSize room = central_->size().shrunkBy(central_->layout()->contentsMargins()) -
                     QSize(kColumnSpacing, kRowSpacing);
  ScaleTexts(side_->FitScale(*table_, room, prompt_line_height_));
}

void GameWindow::MeasureSmallest() {
  if (smallest_measured_) return;
  smallest_measured_ = true;
  side_->MeasureSmallest();
  table_->MeasureMinimum();
}

void GameWindow::ScaleTexts(double scale) {
  side_->SetScale(scale);
  const int px = static_cast<int>(std::lround(QFontInfo(font()).pixelSize() * side_->scale()));
  if (QFontInfo(prompt_line_->font()).pixelSize() != px) {
    QFont text;  // the size only
    if (px != QFontInfo(font()).pixelSize()) text.setPixelSize(px);
    prompt_line_->setFont(text);
  }
}

void GameWindow::KeepOnScreen() {
  // Less than a title bar's height of the window on every screen (a monitor gone, a hand-edited
  // file): it comes to the middle of the main screen.
  const int bar = std::max(24, style()->pixelMetric(QStyle::PM_TitleBarHeight));
  const QRect frame(pos(), frameGeometry().size().expandedTo(size()));
  for (const QScreen* s : QGuiApplication::screens()) {
    const QRect seen = frame.intersected(s->availableGeometry());
    if (seen.height() >= bar && seen.width() >= bar) return;
  }
  const QScreen* home = QGuiApplication::primaryScreen();
  if (home == nullptr) return;
  const QRect room = home->availableGeometry();
  move(room.x() + std::max(0, (room.width() - frame.width()) / 2),
       room.y() + std::max(0, (room.height() - frame.height()) / 2));
}

void GameWindow::PlaceAtStoredPosition() {
  move(static_cast<int>(std::lround(TwipsToPixels(model_.window_left(), Dpi()))),
       static_cast<int>(std::lround(TwipsToPixels(model_.window_top(), Dpi()))));
  placed_ = true;
  FitToContents();
  KeepOnScreen();
}

void GameWindow::moveEvent(QMoveEvent* event) {
  QMainWindow::moveEvent(event);
  if (!placed_) return;
  model_.set_window_position(static_cast<float>(PixelsToTwips(pos().x(), Dpi())),
                             static_cast<float>(PixelsToTwips(pos().y(), Dpi())));
}

void GameWindow::closeEvent(QCloseEvent* event) {
  if (!front_.finished() && !front_.MayAbandon()) {
    event->ignore();
    return;
  }
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
  if (event->type() == QEvent::Resize) Rescale();
  if (event->type() == QEvent::Paint && !smallest_measured_)
    QTimer::singleShot(0, this, &GameWindow::MeasureSmallest);
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
  if (key == Qt::Key_H) return "mnuHint";
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
