#include "ui/model/prompt_line.h"

#include <algorithm>
#include <utility>

namespace bq {
namespace {

using Step = PromptFacts::Step;
using Shown = PromptFacts::Shown;

std::string Num(int n) {
  return std::to_string(n);
}

struct Who {
  std::string subject;     // "The computer"
  std::string possessive;  // "its"
  std::string owner;       // "the computer's"
};

Who Opponent(bool vs_computer, const std::string& name) {
  if (vs_computer) return {"The computer", "its", "the computer's"};
  const std::string n = name.empty() ? "Opponent" : name;
  return {n, "their", n + "'s"};
}

std::string Join(const std::string& first, const std::string& second) {
  if (first.empty()) return second;
  if (second.empty()) return first;
  return first + "  " + second;
}

std::string Moves(int n) {
  return Num(n) + (n == 1 ? " move" : " moves");
}

std::string TheirMove(const PromptFacts& f, const Who& who) {
  switch (f.shown) {
    case Shown::kDiscard:
    case Shown::kDraw:
      return who.subject + " will take " + Num(f.card1) + " from the " +
             (f.shown == Shown::kDiscard ? "Discard" : "Draw") + " Pile" +
             (f.slot > 0 ? " for slot " + Num(f.slot) : "") + ".";
    case Shown::kNothing:
      return who.subject + " doesn't want " + Num(f.card2) + " from the Discard Pile or " +
             Num(f.card1) + " from the Draw Pile.";
    case Shown::kTakem:
      return "Takem: " + who.subject + " will take your " + Num(f.card1) +
             (f.card2 > 0 ? " and give you " + who.possessive + " " + Num(f.card2) : "") + ".";
    case Shown::kSmackem:
      return "Smackem: " + who.subject + " will swap your " + Num(f.card1) + " and " +
             Num(f.card2) + ".";
    case Shown::kSwitchem:
      if (f.card1 == 0) return "Switchem: " + who.subject + " keeps " + who.possessive + " Stack.";
      return "Switchem: " + who.subject + " will swap " + who.possessive + " " + Num(f.card1) +
             " and " + Num(f.card2) + ".";
    case Shown::kBackem:
      return "Backem: " + who.subject + " will reverse " + who.possessive +
             " direction and aim for descending order.";
  }
  return "";
}

std::string Turn(const PromptFacts& f, const Who& who) {
  const std::string button = f.fast_mode ? "" : ", then click the button";
  switch (f.step) {
    case Step::kSwitchem:
      if (!f.fast_mode && f.picked == 2)
        return "Switchem: click the button to swap the two cards you chose (Enter).";
      return "Switchem: choose 2 of your cards to swap" + button + ".";
    case Step::kSmackem:
      return "Smackem: choose 2 of " + who.owner + " cards to swap" + button +
             ", or press Smackem again to give up.";
    case Step::kTakem:
      return "Takem: choose 1 of your cards and 1 of " + who.owner + " to exchange" + button +
             ", or press Takem again to give up.";
    default:
      break;
  }
  // An ordinary turn. Once the Draw Pile card has been seen, it is that card or a pass.
  if (f.draw_marked) {
    if (f.chosen_card > 0)
      return "Click the button to put " + Num(f.draw_card) + " in place of your " +
             Num(f.chosen_card) + " (Enter).";
    return "Choose the card of your Stack to replace with " + Num(f.draw_card) + ", or pass " +
           (f.fast_mode ? "by clicking the Discard Pile." : "with the button.");
  }
  if (f.discard_marked) {
    if (f.chosen_card > 0)
      return "Click the button to put " + Num(f.discard_card) + " in place of your " +
             Num(f.chosen_card) + " (Enter).";
    return "Choose the card of your Stack to replace with " + Num(f.discard_card) + ".";
  }
  if (f.chosen_card > 0)
    return "Take the Discard Pile card (D) for your " + Num(f.chosen_card) +
           ", or look at the Draw Pile card (P).";
  std::string line = "Your turn: take the Discard Pile card (D) or look at the Draw Pile card (P)";
  if (f.smackem_offered && f.takem_offered)
    line += ", or use Smackem or Takem";
  else if (f.smackem_offered)
    line += ", or use Smackem";
  else if (f.takem_offered)
    line += ", or use Takem";
  return line + ".";
}

}  // namespace

std::string PromptLine(const PromptFacts& f) {
  const Who who = Opponent(f.vs_computer, f.opponent);
  if (f.silent)
    return Join(f.news,
                "No word from your opponent for 30 s. They may still be thinking; if a message "
                "was lost, Quit This Game ends the game for both.");
  switch (f.step) {
    case Step::kBetweenGames:
      return Join(f.news,
                  Join(f.result,
                       f.can_start ? "Choose the play options, then start a new game (F2)."
                                   : "Set up the connection with your opponent to start a game."));
    case Step::kResult:
      return Join(f.news, Join(f.result, "Click the result button to continue (Enter)."));
    case Step::kTheirMove:
      return Join(f.news, TheirMove(f, who) + "  Click the button to continue (Enter).");
    case Step::kWaiting:
      return Join(f.news, "Waiting for " + who.owner + " move.");
    case Step::kNotice:
      return Join(f.news, f.notice + "  Click the button to continue (Enter).");
    default: {
      const bool own_step = f.chosen_card > 0 || f.discard_marked;
      return Join(f.news, f.hint.empty() || own_step ? Turn(f, who) : f.hint);
    }
  }
}

std::string ResultText(int turn_result, const GameState& g, bool vs_computer,
                       const std::string& opponent) {
  const Who who = Opponent(vs_computer, opponent);
  switch (turn_result) {
    case kAInOrder:
      return g.move_count_a == 0 ? "You won with the Stack you were dealt."
                                 : "You won in " + Moves(g.move_count_a) + ".";
    case kBInOrder:
      return g.move_count_b == 0 ? who.subject + " won with the Stack it was dealt."
                                 : who.subject + " won in " + Moves(g.move_count_b) + ".";
    case kTie:
      return "A tie: both Stacks are in order.";
    default:
      return "";
  }
}

namespace {

// A move's cards as they lay before it. Slots are held as the game holds them; side A's move
// names the opponent's cards where they are shown, and side B's row may be shown reversed.
struct Cards {
  const GameState& g;
  const Move& m;

  int Held(int side, int slot) const {
    return side == kSideB && m.side == kSideA ? g.DisplayPos(slot) : slot;
  }
  int Shown(int side, int held) const { return side == kSideB ? g.DisplayPos(held) : held; }
  int Card(int side, int held) const { return g.Card(side, held); }
  // The two cards of a swap in `side`'s Stack, lowest slot first.
  std::pair<int, int> Pair(int side) const {
    return std::minmax(Held(side, m.slot1), Held(side, m.slot2));
  }
  // A turn spent, the opening's Stack kept, or a card swapped with itself: no card moved.
  bool Unchanged() const {
    return m.kind == MoveKind::kSpendTurn ||
           ((m.kind == MoveKind::kSwitchem || m.kind == MoveKind::kSmackem) && m.slot1 == m.slot2);
  }
};

}  // namespace

MoveNews DescribeMoveB(const GameState& before, const Move& m, bool backem, bool vs_computer,
                       const std::string& opponent, bool b_face_up) {
  const Who who = Opponent(vs_computer, opponent);
  const std::string& s = who.subject;
  const Cards c{before, m};
  MoveNews news;
  const auto lit = [&](int side, int held) {
    news.changed.push_back((side == kSideA ? "lblCardA(" : "lblCardB(") + Num(c.Shown(side, held)) +
                           ")");
  };
  const std::string slot = " for slot " + Num(c.Shown(kSideB, m.slot1));
  const std::string replaced = Num(c.Card(kSideB, m.slot1));
  std::string what;
  if (c.Unchanged()) {
    if (!backem) what = s + " left " + who.possessive + " Stack as it was.";
  } else if (m.kind == MoveKind::kTakeDiscard) {
    what = s + " took " + Num(before.discard_top) + " from the Discard Pile" + slot + " and put " +
           replaced + " on it.";
    news.changed = {"lblDiscardPile"};
    lit(kSideB, m.slot1);
  } else if (m.kind == MoveKind::kTakeDraw) {
    // A card from the Draw Pile goes into the Stack unseen.
    what = s + " took " + (b_face_up ? Num(before.DrawTop()) : std::string("the card")) +
           " from the Draw Pile" + slot + " and put " + replaced + " on the Discard Pile.";
    news.changed = {"lblDrawPile", "lblDiscardPile"};
    lit(kSideB, m.slot1);
  } else if (m.kind == MoveKind::kPass) {
    what = s + " turned down " + Num(before.DrawTop()) +
           " from the Draw Pile; it is now the Discard Pile card.";
    news.changed = {"lblDrawPile", "lblDiscardPile"};
  } else if (m.kind == MoveKind::kTakem) {
    what = s + " used Takem, taking your " + Num(c.Card(kSideA, m.slot2)) + " for " +
           who.possessive + " " + replaced + ".";
    lit(kSideA, m.slot2);
    lit(kSideB, m.slot1);
  } else if (m.kind == MoveKind::kSmackem) {
    const auto [p, q] = c.Pair(kSideA);
    what = s + " used Smackem, swapping your " + Num(c.Card(kSideA, p)) + " and " +
           Num(c.Card(kSideA, q)) + ".";
    lit(kSideA, p);
    lit(kSideA, q);
  } else if (m.kind == MoveKind::kSwitchem) {
    const auto [p, q] = c.Pair(kSideB);
    what = s + " used Switchem, swapping " + who.possessive + " " +
           (b_face_up
                ? Num(c.Card(kSideB, p)) + " and " + Num(c.Card(kSideB, q))
                : "cards in slots " + Num(c.Shown(kSideB, p)) + " and " + Num(c.Shown(kSideB, q))) +
           ".";
    lit(kSideB, p);
    lit(kSideB, q);
  }
  const std::string turned =
      s + " reversed " + who.possessive + " direction and now aims for descending order.";
  news.text = Join(backem ? turned : "", what);
  return news;
}

std::string MoveEntry(const GameState& before, const Move& m, bool backem, bool vs_computer,
                      const std::string& opponent, bool b_face_up) {
  const std::string them = vs_computer ? "Computer" : opponent.empty() ? "Opponent" : opponent;
  const int side = m.side;
  const int other = side == kSideA ? kSideB : kSideA;
  // Side A's words about side B's Stack: its cards are face down to the player.
  const std::string their_stack =
      side == kSideA ? (vs_computer ? "the " : "") + them + "'s" : "your";
  const Cards c{before, m};
  const auto card = [&](int s, int held) { return Num(c.Card(s, held)); };
  const auto slot = [&](int s, int held) { return "slot " + Num(c.Shown(s, held)); };
  // A card that went into side B's face-down Stack unseen is not named.
  const bool unseen = side == kSideB && !b_face_up;
  std::string what;
  if (m.kind == MoveKind::kSpendTurn) {
    what = "ended the turn without taking a card";
  } else if (c.Unchanged()) {
    what = "Switchem, kept the Stack as it was";
  } else if (m.kind == MoveKind::kTakeDiscard || m.kind == MoveKind::kTakeDraw) {
    const bool discard = m.kind == MoveKind::kTakeDiscard;
    what = "took " +
           (unseen && !discard ? std::string("the card")
                               : Num(discard ? before.discard_top : before.DrawTop())) +
           " from the " + (discard ? "Discard" : "Draw") + " Pile, put it in " +
           slot(side, m.slot1) + ", " + card(side, m.slot1) + " discarded";
  } else if (m.kind == MoveKind::kPass) {
    what = "passed, " + Num(before.DrawTop()) + " from the Draw Pile discarded";
  } else if (m.kind == MoveKind::kTakem) {
    const int theirs = c.Held(other, m.slot2);
    what = "Takem, gave " + card(side, m.slot1) + " from " + slot(side, m.slot1) + " for " +
           their_stack + " " + card(other, theirs) + " from " + slot(other, theirs);
  } else if (m.kind == MoveKind::kSmackem) {
    const auto [p, q] = c.Pair(other);
    what = "Smackem, swapped " + their_stack + " cards in slots " + Num(c.Shown(other, p)) +
           " and " + Num(c.Shown(other, q));
    if (side == kSideB) what += " (" + card(other, p) + " and " + card(other, q) + ")";
  } else if (m.kind == MoveKind::kSwitchem) {
    const auto [p, q] = c.Pair(side);
    what = unseen ? "Switchem, swapped the cards in slots " + Num(c.Shown(side, p)) + " and " +
                        Num(c.Shown(side, q))
                  : "Switchem, swapped " + card(side, p) + " in " + slot(side, p) + " and " +
                        card(side, q) + " in " + slot(side, q);
  }
  if (backem && side == kSideB) what = "Backem, reversed its direction; " + what;
  return (side == kSideA ? "You" : them) + ": " + what;
}

}  // namespace bq
