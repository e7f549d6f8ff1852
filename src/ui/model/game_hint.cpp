// The Hint: side A's turn judged as the chosen computer judges its own, told on the prompt line.
#include "ai/expert.h"
#include "ui/model/game_model.h"

namespace bq {

// Side A's ordinary turn with the piles on offer, no special move being picked and nothing of
// the opponent's on show (over the network, not before the deal has arrived).
bool GameModel::HintAvailable() const {
  return game_running_ && !game_over_ && g_.turn_owner == kSideA && pending_ == Pending::kNone &&
         selecting_ == Selecting::kNone && (lblDiscardPile.enabled || lblDrawPile.enabled);
}

bool GameModel::AskHint() {
  if (!HintAvailable()) return false;
  const bool looked = lblDrawPile.marked == 1;
  const HintModel::Seen seen = HintModel::See(g_, looked);
  if (!expert_chosen_) {
    hint_.Ask(seen, Backem());
    return true;
  }
  // From what side A has seen, as the Expert in side A's seat would be told it.
  static const ai::Expert expert;
  hint_.Ask(seen, ai::ExpertAdvice(expert, ai::ViewOf(g_, kSideA, shown_a_, looked)), true);
  return true;
}

// The advice stays while the position it was given for stands; the pile to take from and the
// card it would replace stay highlighted with it.
void GameModel::ShowHint() {
  const bool available = HintAvailable();
  mnuHint.enabled = available;
  if (available)
    hint_.Follow(HintModel::See(g_, lblDrawPile.marked == 1));
  else
    hint_.Clear();
  if (!hint_.active()) return;
  const ai::Advice& advice = hint_.advice();
  switch (advice.kind) {
    case ai::Advice::Kind::kTakeDiscard:
      Highlight(lblDiscardPile, kHighlightSteady);
      break;
    case ai::Advice::Kind::kLookAtDraw:
    case ai::Advice::Kind::kTakeDraw:
      Highlight(lblDrawPile, kHighlightSteady);
      break;
    case ai::Advice::Kind::kPass:
      break;
    case ai::Advice::Kind::kTakem:
      Highlight(cmdSetupTakemA, kHighlightSteady);
      break;
  }
  if (advice.slot > 0) Highlight(lblCardA[static_cast<size_t>(advice.slot)], kHighlightSteady);
}

}  // namespace bq
