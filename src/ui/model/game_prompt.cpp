// The game window's events as seen from outside, and what the window tells the player after each:
// the prompt line, the opponent's last move in words, and the highlights.
#include <algorithm>
#include <utility>

#include "ui/model/game_model.h"

namespace bq {

bool GameModel::Click(std::string_view name) {
  BeginEvent();
  const bool done = ClickControl(name);
  EndEvent();
  return done;
}

bool GameModel::RightClick(std::string_view name) {
  BeginEvent();
  const bool done = RightClickControl(name);
  EndEvent();
  return done;
}

std::string GameModel::SetField(std::string_view field, std::string_view values) {
  BeginEvent();
  std::string error = SetGameValue(field, values);
  EndEvent();
  return error;
}

void GameModel::BeginEvent() {
  if (event_depth_++ > 0) return;
  news_.clear();
  ClearHighlights();
}

void GameModel::EndEvent() {
  if (--event_depth_ > 0) return;
  event_depth_ = 0;
  if (game_over_) {
    result_ = ResultText(g_.turn_result, g_, vs_computer_, opponent_name_);
    const bool a = g_.turn_result == kAInOrder || g_.turn_result == kTie;
    const bool b = g_.turn_result == kBInOrder || g_.turn_result == kTie;
    for (int k = 1; k <= N(); ++k) {
      if (a) Highlight(lblCardA[static_cast<size_t>(k)], kHighlightSteady);
      if (b) Highlight(lblCardB[static_cast<size_t>(k)], kHighlightSteady);
    }
  } else if (game_running_) {
    result_.clear();  // kept between games only
  }
  RefreshQuit();
  // The computer is chosen whenever the opponent may be: between games, never during one.
  mnuComputerClassic.enabled = mnuComputerExpert.enabled = mnuVsComputer.enabled;
  mnuEditUndo.enabled = UndoAvailable();
  if (!AwaitingOpponent()) {
    remote_.waiting_since_ms = -1;
    remote_.silence_told = false;
  } else if (remote_.waiting_since_ms < 0) {
    remote_.waiting_since_ms = platform_.NowMs();
  }
  ShowHint();
  lblPrompt.caption = PromptLine(Facts());
}

void GameModel::AddNews(const std::string& text) {
  if (text.empty()) return;
  if (!news_.empty()) news_ += "  ";
  news_ += text;
}

void GameModel::Highlight(Control& c, int kind) {
  if (c.highlight == kHighlightNone) highlighted_.push_back(&c);
  c.highlight = std::max(c.highlight, kind);
  if (kind == kHighlightBrief) ++highlight_serial_;
}

void GameModel::ClearHighlights() {
  for (Control* c : highlighted_) c->highlight = kHighlightNone;
  highlighted_.clear();
}

void GameModel::NoteMove(const GameState& before, const Move& m) {
  for (size_t i = kMoveListSize; i > 1; --i) lblMoveList[i].caption = lblMoveList[i - 1].caption;
  const bool b_face_up = learn_mode_ || judgement_shown_;
  const bool backem = std::exchange(backem_untold_, false);
  lblMoveList[1].caption = MoveEntry(before, m, backem, vs_computer_, opponent_name_, b_face_up);
  if (m.side == kSideB) {
    const MoveNews news = DescribeMoveB(before, m, backem, vs_computer_, opponent_name_, b_face_up);
    AddNews(news.text);
    for (const std::string& name : news.changed)
      if (Control* c = Find(name)) Highlight(*c, kHighlightBrief);
  }
}

void GameModel::StartMoveList() {
  shown_a_.NewGame();
  backem_untold_ = false;
  for (Control& c : lblMoveList) c.caption.clear();
}

PromptFacts GameModel::Facts() const {
  using Step = PromptFacts::Step;
  using Shown = PromptFacts::Shown;
  PromptFacts f;
  f.vs_computer = vs_computer_;
  f.opponent = opponent_name_;
  f.fast_mode = fast_mode_;
  f.news = news_;
  f.result = result_;
  f.can_start = cmdNew.visible && cmdNew.enabled;
  f.silent = remote_.silence_told;
  const std::string them = vs_computer_             ? "The computer"
                           : opponent_name_.empty() ? "Opponent"
                                                    : opponent_name_;
  const std::pair<const Control*, std::string> notices[] = {
      {&cmdInvitationRejected, "Your invitation was rejected: this deal will not be played."},
      {&cmdQuitReceived, them + " has quit this game; it is not counted."},
      {&cmdExitReceived,
       them + " has exited; after the button the computer is your opponent again."}};
  for (const auto& [prompt, notice] : notices) {
    if (!prompt->visible) continue;
    f.step = Step::kNotice;
    f.notice = notice;
    return f;
  }
  if (!game_running_) return f;
  if (game_over_) {
    f.step = Step::kResult;
    return f;
  }
  if (pending_ != Pending::kNone) {
    // The held move is not made yet: the cards it names still lie where it found them.
    const Move& m = held_;
    f.step = Step::kTheirMove;
    switch (pending_) {
      case Pending::kDiscard:
      case Pending::kDraw:
        f.shown = pending_ == Pending::kDiscard ? Shown::kDiscard : Shown::kDraw;
        f.card1 = pending_ == Pending::kDiscard ? g_.discard_top : g_.DrawTop();
        if (vs_computer_ && m.slot1 > 0) f.slot = g_.DisplayPos(m.slot1);
        break;
      case Pending::kNothing:
        f.shown = Shown::kNothing;
        f.card1 = g_.DrawTop();
        f.card2 = g_.discard_top;
        break;
      case Pending::kTakem:
        f.shown = Shown::kTakem;
        f.card1 = g_.Card(kSideA, m.slot2);
        f.card2 = g_.Card(kSideB, m.slot1);
        break;
      case Pending::kSmackem:
        f.shown = Shown::kSmackem;
        f.card1 = g_.Card(kSideA, m.slot1);
        f.card2 = g_.Card(kSideA, m.slot2);
        break;
      case Pending::kSwitchem:
        f.shown = Shown::kSwitchem;
        if (m.slot1 > 0 && m.slot2 > 0) {
          f.card1 = g_.Card(kSideB, m.slot1);
          f.card2 = g_.Card(kSideB, m.slot2);
        }
        break;
      default:
        f.shown = Shown::kBackem;
        break;
    }
    return f;
  }
  switch (selecting_) {
    case Selecting::kSwitchemA:
      f.step = Step::kSwitchem;
      f.picked = MarkedCount(lblCardA);
      return f;
    case Selecting::kSmackemA:
      f.step = Step::kSmackem;
      return f;
    case Selecting::kTakemA:
      f.step = Step::kTakem;
      return f;
    default:
      break;
  }
  // Side A's turn has both piles on offer; with neither, side A waits (its move is over, or a
  // network game has not begun).
  if (g_.turn_owner != kSideA || (!lblDiscardPile.enabled && !lblDrawPile.enabled)) {
    f.step = Step::kWaiting;
    return f;
  }
  f.step = Step::kTurn;
  f.discard_marked = lblDiscardPile.marked == 1;
  f.draw_marked = lblDrawPile.marked == 1;
  f.discard_card = g_.discard_top;
  f.draw_card = g_.DrawTop();
  for (int k = N(); k >= 1 && f.chosen_card == 0; --k)
    if (lblCardA[static_cast<size_t>(k)].marked == 1) f.chosen_card = g_.Card(kSideA, k);
  f.smackem_offered = cmdSetupSmackemA.visible && cmdSetupSmackemA.enabled;
  f.takem_offered = cmdSetupTakemA.visible && cmdSetupTakemA.enabled;
  f.hint = hint_.Text();
  return f;
}

}  // namespace bq
