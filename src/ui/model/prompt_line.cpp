#include "ui/model/prompt_line.h"

#include <algorithm>

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

// The slots of each side whose cards differ between two positions. Side B is compared as it is
// held after the move: a reversal turns the Stack round without changing the screen.
struct Changes {
  const GameState& before;
  const GameState& after;
  std::vector<int> a, b;
  bool turned = false;

  Changes(const GameState& from, const GameState& to) : before(from), after(to) {
    const int n = after.stack_size;
    turned = before.opponent_row_reversed != after.opponent_row_reversed;
    for (int k = 1; k <= n; ++k) {
      if (before.Card(kSideA, k) != after.Card(kSideA, k)) a.push_back(k);
      if (OldB(k) != after.Card(kSideB, k)) b.push_back(k);
    }
  }
  int OldB(int slot) const {
    return before.Card(kSideB, turned ? after.stack_size + 1 - slot : slot);
  }
  int Old(int side, int slot) const {
    return side == kSideA ? before.Card(kSideA, slot) : OldB(slot);
  }
  const std::vector<int>& Of(int side) const { return side == kSideA ? a : b; }
  // The slot as the board numbers it: side B's row may be held reversed.
  int Shown(int side, int slot) const { return side == kSideA ? slot : after.DisplayPos(slot); }
  bool FromDiscard(int side, int slot) const {
    return after.Card(side, slot) == before.discard_top;
  }
};

}  // namespace

MoveNews DescribeMoveB(const GameState& before, const GameState& after, bool vs_computer,
                       const std::string& opponent, bool b_face_up) {
  const Who who = Opponent(vs_computer, opponent);
  const Changes c(before, after);
  const std::vector<int>& a = c.a;
  const std::vector<int>& b = c.b;
  MoveNews news;
  auto card_a = [&](int slot) { news.changed.push_back("lblCardA(" + Num(slot) + ")"); };
  auto card_b = [&](int slot) {
    news.changed.push_back("lblCardB(" + Num(after.DisplayPos(slot)) + ")");
  };
  std::string text;
  if (c.turned)
    text = who.subject + " reversed " + who.possessive + " direction and now aims for " +
           (after.opponent_row_reversed ? "descending" : "ascending") + " order.";
  const std::string s = who.subject;
  std::string what;
  if (a.empty() && b.size() == 1) {
    const int placed = after.Card(kSideB, b[0]);
    const std::string slot = " for slot " + Num(after.DisplayPos(b[0]));
    if (c.FromDiscard(kSideB, b[0])) {
      what = s + " took " + Num(placed) + " from the Discard Pile" + slot + " and put " +
             Num(after.discard_top) + " on it.";
    } else {
      // A card from the Draw Pile goes into the Stack unseen.
      what = s + " took " + (b_face_up ? Num(placed) : std::string("the card")) +
             " from the Draw Pile" + slot + " and put " + Num(after.discard_top) +
             " on the Discard Pile.";
      news.changed.push_back("lblDrawPile");
    }
    news.changed.push_back("lblDiscardPile");
    card_b(b[0]);
  } else if (a.empty() && b.empty()) {
    if (after.discard_top != before.discard_top) {
      what = s + " turned down " + Num(after.discard_top) +
             " from the Draw Pile; it is now the Discard Pile card.";
      news.changed.push_back("lblDrawPile");
      news.changed.push_back("lblDiscardPile");
    } else if (text.empty()) {
      what = s + " left " + who.possessive + " Stack as it was.";
    }
  } else if (a.size() == 1 && b.size() == 1) {
    what = s + " used Takem, taking your " + Num(before.Card(kSideA, a[0])) + " for " +
           who.possessive + " " + Num(after.Card(kSideA, a[0])) + ".";
    card_a(a[0]);
    card_b(b[0]);
  } else if (a.size() == 2 && b.empty()) {
    what = s + " used Smackem, swapping your " + Num(before.Card(kSideA, a[0])) + " and " +
           Num(before.Card(kSideA, a[1])) + ".";
    card_a(a[0]);
    card_a(a[1]);
  } else if (a.empty() && b.size() == 2) {
    what = s + " used Switchem, swapping " + who.possessive + " " +
           (b_face_up ? Num(c.OldB(b[0])) + " and " + Num(c.OldB(b[1]))
                      : "cards in slots " + Num(after.DisplayPos(b[0])) + " and " +
                            Num(after.DisplayPos(b[1]))) +
           ".";
    card_b(b[0]);
    card_b(b[1]);
  } else {
    what = s + " changed " + Num(static_cast<int>(a.size() + b.size())) + " cards.";
    std::for_each(a.begin(), a.end(), card_a);
    std::for_each(b.begin(), b.end(), card_b);
  }
  news.text = Join(text, what);
  return news;
}

std::string MoveEntry(const GameState& before, const GameState& after, int side, bool vs_computer,
                      const std::string& opponent, bool b_face_up) {
  const std::string them = vs_computer ? "Computer" : opponent.empty() ? "Opponent" : opponent;
  const int other = side == kSideA ? kSideB : kSideA;
  // Side A's words about side B's Stack: its cards are face down to the player.
  const std::string their_stack =
      side == kSideA ? (vs_computer ? "the " : "") + them + "'s" : "your";
  const Changes c(before, after);
  const std::vector<int>& own = c.Of(side);
  const std::vector<int>& others = c.Of(other);
  auto slot = [&](int s, int k) { return "slot " + Num(c.Shown(s, k)); };
  // A card that went into side B's face-down Stack unseen is not named.
  const bool unseen = side == kSideB && !b_face_up;
  std::string what;
  if (others.empty() && own.size() == 1) {
    const int k = own[0];
    const bool discard = c.FromDiscard(side, k);
    what = "took " + (unseen && !discard ? std::string("the card") : Num(after.Card(side, k))) +
           " from the " + (discard ? "Discard" : "Draw") + " Pile, put it in " + slot(side, k) +
           ", " + Num(after.discard_top) + " discarded";
  } else if (own.empty() && others.empty()) {
    what = after.discard_top != before.discard_top
               ? "passed, " + Num(after.discard_top) + " from the Draw Pile discarded"
               : "Switchem, kept the Stack as it was";
  } else if (own.size() == 1 && others.size() == 1) {
    what = "Takem, gave " + Num(c.Old(side, own[0])) + " from " + slot(side, own[0]) + " for " +
           their_stack + " " + Num(after.Card(side, own[0])) + " from " + slot(other, others[0]);
  } else if (own.empty() && others.size() == 2) {
    what = "Smackem, swapped " + their_stack + " cards in slots " + Num(c.Shown(other, others[0])) +
           " and " + Num(c.Shown(other, others[1]));
    if (side == kSideB)
      what += " (" + Num(c.Old(other, others[0])) + " and " + Num(c.Old(other, others[1])) + ")";
  } else if (others.empty() && own.size() == 2) {
    what = unseen ? "Switchem, swapped the cards in slots " + Num(c.Shown(side, own[0])) + " and " +
                        Num(c.Shown(side, own[1]))
                  : "Switchem, swapped " + Num(c.Old(side, own[0])) + " in " + slot(side, own[0]) +
                        " and " + Num(c.Old(side, own[1])) + " in " + slot(side, own[1]);
  } else {
    what = "changed " + Num(static_cast<int>(own.size() + others.size())) + " cards";
  }
  if (c.turned && side == kSideB) what = "Backem, reversed its direction; " + what;
  return (side == kSideA ? "You" : them) + ": " + what;
}

}  // namespace bq
