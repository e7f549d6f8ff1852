// Undo against the computer: the game is kept whole before each of the player's moves in play,
// and taking a move back restores it, the computer's reply with it.
#include <algorithm>

#include "ui/model/game_model.h"

namespace bq {
namespace {

constexpr const char* kNotCounted = "Undo: this game will not be counted in the statistics.";

}  // namespace

// Side A's ordinary turn with nothing held or being picked; a Draw Pile card turned over this
// turn is no obstacle: it is undone with the rest.
bool GameModel::UndoAvailable() const {
  return game_running_ && !game_over_ && !undo_.points.empty() && g_.phase == Phase::kPlay &&
         g_.turn_owner == kSideA && pending_ == Pending::kNone && selecting_ == Selecting::kNone;
}

// Never against a person: both copies would have to agree to take a move back.
void GameModel::KeepUndoPoint(const Move& m) {
  if (!vs_computer_ || m.side != kSideA || g_.phase != Phase::kPlay) return;
  UndoPoint p{g_, seat_, shown_a_, first_turn_, {}};
  for (int i = 1; i <= kMoveListSize; ++i)
    p.move_list.push_back(lblMoveList[static_cast<size_t>(i)].caption);
  undo_.points.push_back(std::move(p));
}

// A card once seen stays seen: an undo that puts it back on the Draw Pile shows it face up.
void GameModel::NoteDrawSeen(const Move& m) {
  if (g_.phase != Phase::kPlay) return;
  DrawSeen& seen = undo_.draw_seen[static_cast<size_t>(g_.DrawTop())];
  const bool look = m.kind == MoveKind::kTakeDraw || m.kind == MoveKind::kPass;
  if (m.side == kSideA && look) {
    seen = DrawSeen::kLookedAt;
  } else if (m.side == kSideB && vs_computer_ &&
             (m.kind == MoveKind::kPass || m.kind == MoveKind::kSpendTurn ||
              (m.kind == MoveKind::kTakeDraw && (learn_mode_ || judgement_shown_)))) {
    seen = std::max(seen, DrawSeen::kShownByComputer);
  }
}

bool GameModel::Undo() {
  if (!UndoAvailable()) return false;
  if (counted_game_running()) AddNews(kNotCounted);
  undo_.used = true;
  UndoPoint p = std::move(undo_.points.back());
  undo_.points.pop_back();
  Restore(g_, p.state);
  seat_ = std::move(p.seat);
  shown_a_ = p.shown_a;
  first_turn_ = p.first_turn;
  for (int i = 1; i <= kMoveListSize; ++i)
    lblMoveList[static_cast<size_t>(i)].caption = p.move_list[static_cast<size_t>(i - 1)];
  // The opponent's row as at a turn's start: hidden unless the player watches.
  for (int k = 1; k <= N(); ++k) ShowCardB(k);
  RefreshSlotVisibility();
  TakeJudgement();
  RefreshGoodBad();
  RefreshMoveCounts();
  Hide(cmdSmackemA);
  Hide(cmdTakemA);
  Show(cmdPlayA, !fast_mode_, false);
  StartTurnA();
  const DrawSeen seen = undo_.draw_seen[static_cast<size_t>(g_.DrawTop())];
  if (seen == DrawSeen::kLookedAt)
    ShowDrawLooked();
  else if (seen == DrawSeen::kShownByComputer)
    lblDrawPile.caption = CardFace(g_.DrawTop());
  return true;
}

}  // namespace bq
