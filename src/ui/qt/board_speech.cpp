#include "ui/qt/board_speech.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QStatusBar>
#include <QTimer>
#include <string>
#include <utility>

#include "ui/model/game_model.h"
#include "ui/qt/accessible_widgets.h"
#include "ui/qt/board_table.h"
#include "ui/qt/card_widget.h"
#include "ui/qt/control_binder.h"

namespace bq::qt {

BoardSpeech::BoardSpeech(QWidget* window, const GameModel& model, ControlBinder& binder,
                         BoardTable& table)
    : QObject(window), window_(window), model_(model), binder_(binder), table_(table) {
  columns_.resize(3);
  for (size_t i = 1; i <= kMaxStackSize; ++i) {
    table_.a.backs[i]->setAccessibleName(QStringLiteral("Your card %1: face down").arg(i));
    columns_[0].push_back(table_.b.cards[i]);
    columns_[1].push_back(table_.a.cards[i]);
  }
  columns_[2] = {table_.piles[0], table_.piles[1]};
  // Tab reaches the board right after New Game: the piles, your Stack, the opponent's. So when a
  // focused button goes (New Game at the deal, the complete-move button after a move), the focus
  // moves on to the board, never through Quit This Game.
  QWidget* before = binder_.Widget("cmdNew");
  for (const auto& column : {columns_[2], columns_[1], columns_[0]})
    for (CardLabel* card : column) {
      card->setFocusPolicy(Qt::TabFocus);  // a click keeps the focus where it was
      card->installEventFilter(this);
      if (before != nullptr) QWidget::setTabOrder(before, card);
      before = card;
    }
  connect(qApp, &QApplication::focusChanged, this, &BoardSpeech::FocusChanged);

  // Labels that are numbers or often empty say what they are.
  auto say = [this](const std::string& name, const QString& what) {
    binder_.SetSpokenName(name, [what](const QString& text) {
      return what + QStringLiteral(": ") + (text.isEmpty() ? QStringLiteral("none") : text);
    });
  };
  const char* panels[] = {"Opponent", "Latest event", "Previous event", "Last message"};
  for (int i = 1; i <= 4; ++i)
    say("StatusBar1.Panel(" + std::to_string(i) + ")", QString::fromLatin1(panels[i - 1]));
  for (int i = 1; i <= kMaxStackSize; ++i) {
    const std::string k = "(" + std::to_string(i) + ")";
    say("lblGoodBad" + k, QStringLiteral("Judgement of slot %1").arg(i));
    say("lblRangeA" + k, QStringLiteral("Range of your card %1").arg(i));
    say("lblRangeB" + k, QStringLiteral("Range of the opponent's card %1").arg(i));
  }
  // The panels that hold the controls are named too, or hidden from the tree's readers.
  table_.setAccessibleName(QStringLiteral("Table"));
  if (QWidget* central = table_.parentWidget()) central->setAccessibleName(QStringLiteral("Game"));
  if (auto* prompts = window_->findChild<PromptArea*>()) {
    prompts->setAccessibleName(QStringLiteral("Prompts"));
    if (QWidget* side = prompts->parentWidget())
      side->setAccessibleName(QStringLiteral("Options and prompts"));
  }
  if (auto* status = window_->findChild<QStatusBar*>())
    status->setAccessibleName(QStringLiteral("Status"));
  if (QWidget* frame = binder_.Widget("frmPlayOptions"); frame && frame->parentWidget())
    frame->parentWidget()->setAccessibleName(QStringLiteral("Options"));
  for (int i = 1; i <= GameModel::kMoveListSize; ++i)
    say("lblMoveList(" + std::to_string(i) + ")", QStringLiteral("Move list %1").arg(i));
  say("lblMoveCountA", QStringLiteral("Your moves"));
  say("lblMoveCountB", QStringLiteral("Opponent's moves"));
}

bool BoardSpeech::Usable(const QWidget* w) const {
  return w != nullptr && w->isEnabled() && w->isVisibleTo(window_);
}

void BoardSpeech::Describe(QWidget* w, const QString& text) {
  if (w == nullptr) return;
  own_description_.try_emplace(w, w->accessibleDescription());
  if (w->accessibleDescription() != text) w->setAccessibleDescription(text);
}

void BoardSpeech::FocusChanged(QWidget* old, QWidget*) {
  const auto own = own_description_.find(old);
  if (own == own_description_.end()) return;
  // Told while it had the focus; a description change now goes unheard.
  if (old->accessibleDescription() != own->second) old->setAccessibleDescription(own->second);
  own_description_.erase(own);
}

QString BoardSpeech::MoveText() const {
  const GameState& g = model_.state();
  int slot = 0;
  for (int k = 1; k <= g.stack_size; ++k)
    if (model_.lblCardA[static_cast<size_t>(k)].marked == 1) slot = k;
  int card = 0;
  if (model_.lblDrawPile.marked == 1)
    card = g.DrawTop();
  else if (model_.lblDiscardPile.marked == 1)
    card = g.discard_top;
  if (card == 0) return {};
  if (slot == 0) return QStringLiteral("Pass %1").arg(card);
  return QStringLiteral("Put %1 in place of your %2").arg(card).arg(g.Card(kSideA, slot));
}

int BoardSpeech::TurnKey() const {
  const GameState& g = model_.state();
  // The player's turn starts with nothing picked and both piles to choose from.
  const bool start = model_.game_running() && g.turn_owner == kSideA &&
                     model_.lblDiscardPile.enabled && model_.lblDrawPile.enabled &&
                     model_.lblDiscardPile.marked == 0 && model_.lblDrawPile.marked == 0;
  return start ? g.move_count_a + g.move_count_b : -1;
}

void BoardSpeech::Refresh() {
  // The heading names the opponent: "Computer's Stack", "Kim's Stack".
  QString owner = SpokenText(model_.lblStackB.caption);
  if (owner.endsWith(QLatin1String(" Stack")))
    owner.chop(6);
  else
    owner = QStringLiteral("Opponent's");
  if (owner != owner_) {
    owner_ = owner;
    for (size_t i = 1; i <= kMaxStackSize; ++i) {
      const QString slot = QStringLiteral("%1 card %2").arg(owner).arg(i);
      table_.b.cards[i]->setSpokenPrefix(slot);
      table_.b.backs[i]->setAccessibleName(slot + QStringLiteral(": face down"));
    }
    // The opponent's pair only shows what it has left; it is not the player's.
    table_.b.setups[0]->setAccessibleName(owner + QStringLiteral(" Smackem"));
    table_.b.setups[1]->setAccessibleName(owner + QStringLiteral(" Takem"));
  }
  for (auto [setup, prompt] : {std::pair{table_.a.setups[0], &model_.cmdSmackemA},
                               std::pair{table_.a.setups[1], &model_.cmdTakemA}}) {
    const bool on = prompt->visible && prompt->enabled;
    if (setup->property("inProgress").toBool() == on) continue;
    setup->setProperty("inProgress", on);
    QAccessible::State changed;
    changed.checked = changed.pressed = true;
    QAccessibleStateChangeEvent event(setup, changed);
    QAccessible::updateAccessibility(&event);
  }
  // The complete-move button always describes the move it would make. (A change of description
  // is not spoken, even on the focus: Qt 6.4 sends the node, not the words, with the event.)
  if (QWidget* play = binder_.Widget("cmdPlayA"); play != nullptr) {
    const QString move = MoveText();
    if (play->accessibleDescription() != move) play->setAccessibleDescription(move);
  }

  const QString prompt = SpokenText(model_.lblPrompt.caption);
  const int turn = TurnKey();
  if (prompt != said_ && prompt != pending_) {
    pending_ = prompt;
    // The widget the model is about to focus tells the prompt as it takes the focus.
    QWidget* named = binder_.Widget(model_.Focus());
    if (Usable(named) && !named->hasFocus() && named->focusPolicy() != Qt::NoFocus &&
        named != binder_.Widget("cmdPlayA"))
      Describe(named, prompt);
  }
  if (turn != turn_key_) {
    turn_key_ = turn;
    turn_started_ = turn >= 0;
  }
  if (turn_started_ || !pending_.isEmpty()) {
    if (!settle_due_) {
      settle_due_ = true;
      // Once the event is over and the model's focus has been restored.
      QTimer::singleShot(0, this, &BoardSpeech::Settle);
    }
  }
}

void BoardSpeech::Settle() {
  settle_due_ = false;
  QWidget* focus = window_->focusWidget();
  const bool stray = focus == nullptr || !Usable(focus) || focus == binder_.Widget("cmdQuit");
  const bool named = Usable(binder_.Widget(model_.Focus()));
  // The Hint's advice takes the focus to the card it names.
  const bool hint = pending_.contains(QLatin1String("Hint: "));
  if (model_.game_running() && (std::exchange(turn_started_, false) || hint || (stray && !named))) {
    if (QWidget* target = BoardTarget(); target != nullptr && target != focus) {
      if (!pending_.isEmpty()) Describe(target, pending_);
      target->setFocus(Qt::OtherFocusReason);
      focus = window_->focusWidget();
    }
  }
  if (!pending_.isEmpty()) {
    const bool told = focus != settled_focus_ && focus != nullptr && focus->hasFocus() &&
                      focus->accessibleDescription() == pending_;
    QWidget* line = binder_.Widget("lblPrompt");
    if (!told && line != nullptr) AnnouncePrompt(line, said_);
    said_ = pending_;
    pending_.clear();
  }
  settled_focus_ = focus;
}

QWidget* BoardSpeech::BoardTarget() const {
  auto steady = [](const Control& c) { return c.highlight == kHighlightSteady; };
  if (model_.lblPrompt.caption.find("Hint: ") != std::string::npos) {
    for (size_t i = 1; i <= kMaxStackSize; ++i)
      if (steady(model_.lblCardA[i]) && Usable(table_.a.cards[i])) return table_.a.cards[i];
    if (steady(model_.lblDrawPile) && Usable(table_.piles[1])) return table_.piles[1];
  }
  for (const auto& column : {columns_[2], columns_[1], columns_[0]})
    for (CardLabel* card : column)
      if (Usable(card)) return card;
  return nullptr;
}

QWidget* BoardSpeech::Step(const CardLabel* from, int key) const {
  size_t col = 0, row = 0;
  bool found = false;
  for (size_t c = 0; c < columns_.size() && !found; ++c)
    for (size_t r = 0; r < columns_[c].size() && !found; ++r)
      if (columns_[c][r] == from) {
        col = c;
        row = r;
        found = true;
      }
  if (!found) return nullptr;
  // The piles stand side by side: Left and Right move between them, Up and Down do nothing.
  const bool piles = col == 2;
  if ((key == Qt::Key_Up || key == Qt::Key_Down) && !piles) {
    const int step = key == Qt::Key_Up ? -1 : 1;
    for (int r = static_cast<int>(row) + step; r >= 0 && r < static_cast<int>(columns_[col].size());
         r += step)
      if (Usable(columns_[col][static_cast<size_t>(r)]))
        return columns_[col][static_cast<size_t>(r)];
    return nullptr;
  }
  if (key != Qt::Key_Left && key != Qt::Key_Right) return nullptr;
  // Left to right: the opponent's Stack, yours, the Discard Pile, the Draw Pile.
  std::vector<std::pair<size_t, size_t>> order;
  const int step = key == Qt::Key_Left ? -1 : 1;
  int place = piles ? 2 + static_cast<int>(row) : static_cast<int>(col);
  for (place += step; place >= 0 && place <= 3; place += step) {
    if (place >= 2) {
      if (Usable(columns_[2][static_cast<size_t>(place - 2)]))
        return columns_[2][static_cast<size_t>(place - 2)];
      continue;
    }
    // Into a Stack: the same row if it can be pressed, else the nearest one that can.
    const auto& column = columns_[static_cast<size_t>(place)];
    const int from_row = piles ? 0 : static_cast<int>(row);
    for (int d = 0; d < static_cast<int>(column.size()); ++d)
      for (int r : {from_row - d, from_row + d})
        if (r >= 0 && r < static_cast<int>(column.size()) && Usable(column[static_cast<size_t>(r)]))
          return column[static_cast<size_t>(r)];
  }
  return nullptr;
}

bool BoardSpeech::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  auto* key = static_cast<QKeyEvent*>(event);
  if ((key->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return false;
  if (QWidget* next = Step(static_cast<CardLabel*>(watched), key->key())) {
    next->setFocus(Qt::TabFocusReason);
    return true;
  }
  return key->key() == Qt::Key_Up || key->key() == Qt::Key_Down || key->key() == Qt::Key_Left ||
         key->key() == Qt::Key_Right;
}

}  // namespace bq::qt
