// Play against a human at another copy of the program: the invitation, the deal sent and
// received, and the opponent's moves replayed on side B through the same steps as a local move.
// Which message is acceptable when is the session's business (net/session.h).
#include "net/session.h"
#include "ui/model/game_model.h"

namespace bq {
namespace {

// A status bar panel shows text; bytes a label cannot show are shown as '?'.
std::string Printable(std::string_view text) {
  std::string out(text);
  for (char& c : out)
    if (static_cast<unsigned char>(c) < 0x20 || static_cast<unsigned char>(c) >= 0x7f) c = '?';
  return out;
}

// The opponent's move a message carries, as side B's move here; nullopt for any other message.
std::optional<Move> MoveOf(const net::Message& message) {
  return std::visit(
      [](const auto& msg) -> std::optional<Move> {
        using T = std::decay_t<decltype(msg)>;
        if constexpr (std::is_same_v<T, net::DiscardMove>)
          return Move{MoveKind::kTakeDiscard, kSideB, msg.slot};
        else if constexpr (std::is_same_v<T, net::DrawMove>)
          return Move{MoveKind::kTakeDraw, kSideB, msg.slot};
        else if constexpr (std::is_same_v<T, net::Pass>)
          return Move{MoveKind::kPass, kSideB};
        else if constexpr (std::is_same_v<T, net::Switch>)
          return Move{MoveKind::kSwitchem, kSideB, msg.pos1, msg.pos2};
        else if constexpr (std::is_same_v<T, net::Smack>)
          return Move{MoveKind::kSmackem, kSideB, msg.pos1, msg.pos2};
        else if constexpr (std::is_same_v<T, net::Take>)
          return Move{MoveKind::kTakem, kSideB, msg.own, msg.other};
        else
          return std::nullopt;
      },
      message);
}

}  // namespace

void GameModel::ReceiveMessage(const std::string& text) {
  // Any word from the opponent shows they are there: the wait starts afresh.
  remote_.waiting_since_ms = -1;
  remote_.silence_told = false;
  const auto decoded = net::Decode(text, {N()});
  if (!decoded || !remote_.session.Accepts(*decoded, Now())) return BadData(text);
  const net::Message& m = *decoded;
  if (const auto move = MoveOf(m); move && !IsLegal(g_, *move)) return BadData(text);
  if (!net::IsRelayedClick(m)) {
    StatusBar1[4].caption = Printable(text);
    if (!std::holds_alternative<net::Invite>(m)) StatusBar1[3].caption = StatusBar1[2].caption;
    StatusBar1[2].caption = net::ReceivedText(m);
  }
  std::visit([this](const auto& msg) { OnMessage(msg); }, m);
}

void GameModel::BadData(const std::string& text) {
  StatusBar1[4].caption = Printable(text);
  StatusBar1[3].caption = StatusBar1[2].caption;
  StatusBar1[2].caption = net::kBadData;
}

void GameModel::OnMessage(const net::Invite&) {
  std::array<std::string, 3> panels;
  for (size_t i = 0; i < 3; ++i) panels[i] = StatusBar1[i + 2].caption;
  // Dismissing a prompt ends its game and offers New Game; the invitation takes that back. A game
  // with the opponent still on the board here is over: they have begun afresh.
  for (Control* prompt : {&cmdInvitationRejected, &cmdClickHere, &cmdQuitReceived})
    if (prompt->visible) AcknowledgePrompt(*prompt);
  if (game_running_ && !vs_computer_) QuitGame();
  for (size_t i = 0; i < 3; ++i) StatusBar1[i + 2].caption = panels[i];
  remote_.session.InvitationReceived();
  cmdNew.enabled = mnuFileNewGame.enabled = mnuPopupFileNewGame.enabled = false;
  remote_.invitation_accepted = false;
  remote_.connected = true;
  invitation_requested_ = true;
}

void GameModel::AnswerInvitation(bool yes) {
  BeginEvent();
  SendToOpponent(yes ? net::Message(net::Accept{}) : net::Message(net::Reject{}));
  remote_.invitation_accepted = yes;
  remote_.is_dealer = !yes;
  remote_.session.Answered(yes);
  if (!yes) RestoreNewGame();
  EndEvent();
}

void GameModel::OnMessage(const net::Accept&) {
  remote_.session.AnswerReceived(true);
  net::Deal s;
  for (int o = 0; o < kOptionCount; ++o) s.options[static_cast<size_t>(o)] = Checked(Option(o));
  s.options[5] = chkRandom.value == 1;
  s.fast_mode = fast_mode_;
  s.learn_mode = learn_mode_;
  s.stack_size = N();
  s.draw_count = g_.draw_count;
  for (int k = 1; k <= N(); ++k) {
    s.receiver_stack[static_cast<size_t>(k - 1)] = g_.Card(kSideB, k);
    s.sender_stack[static_cast<size_t>(k - 1)] = g_.Card(kSideA, k);
  }
  s.discard = g_.discard_top;
  for (int m = 1; m <= g_.draw_count; ++m)
    s.draw[static_cast<size_t>(m - 1)] = g_.draw_cards[static_cast<size_t>(m)];
  SendToOpponent(s);
  Hide(cmdInvitationRejected);
  ShowDeal();
}

void GameModel::OnMessage(const net::Reject&) {
  remote_.session.AnswerReceived(false);
  Prompt(cmdInvitationRejected);
}

void GameModel::OnMessage(const net::Deal& s) {
  StatusBar1[4].caption = net::Encode(s).substr(42, 20);
  remote_.session.DealReceived();
  remote_.is_dealer = false;
  // The deal's opponent is a person: whatever was selected here, so is this copy's.
  if (vs_computer_) SetVsHuman();
  // The options as the dealer had them. Random is only marked: its setter would clear the five.
  chkRandom.value = mnuOptionsRandom.value = s.options[5];
  random_game_ = s.options[5];
  for (int o = 0; o < kOptionCount; ++o)
    if (Checked(Option(o)) != s.options[static_cast<size_t>(o)])
      SetOptionChecked(Option(o), s.options[static_cast<size_t>(o)]);
  SetFastMode(s.fast_mode);
  SetLearnMode(s.learn_mode);
  // The dealer's Draw Pile, however long, so that both copies renew it at the same move; this
  // copy's own length comes back when the game is over.
  const int own_draw_count = g_.draw_count;
  DealtCards cards;
  const auto n = static_cast<size_t>(s.stack_size);
  cards.side_a.assign(s.receiver_stack.begin(), s.receiver_stack.begin() + n);
  cards.side_b.assign(s.sender_stack.begin(), s.sender_stack.begin() + n);
  cards.discard = s.discard;
  cards.draw.assign(s.draw.begin(), s.draw.begin() + s.draw_count);
  // The codec has checked the cards already; the referee's check is the last word.
  if (!InstallDeal(g_, cards)) return BadData(net::Encode(s));
  if (remote_.own_draw_count == 0) remote_.own_draw_count = own_draw_count;
  StartMoveList();  // the first move is told against the deal
  BeginGameFlags();
  for (Control* c : {&cmdInvitationRejected, &cmdClickHere, &cmdQuitReceived, &cmdExitReceived})
    Hide(*c);
  LockControlsForGame();
  ShowDeal();
}

// The dealer has shown its deal; the invited side moves first, opening with its Switchem if any.
void GameModel::AwaitFirstRemoteMove() {
  lblDiscardPile.caption = CardFace(g_.discard_top);
  lblDrawPile.caption = kFaceDown;
  lblDiscardPile.enabled = lblDrawPile.enabled = false;
  remote_.switch_awaited = Checked(kSwitchem);
  StartTurnB();
}

void GameModel::OnMessage(const net::CardClick& m) {
  PlayClick();
  auto& card = lblCardB[static_cast<size_t>(g_.DisplayPos(m.slot))];
  card.marked ^= 1;
  if (remote_.switch_awaited) return;  // a Switchem pick marks two cards
  for (int p = 1; p <= N(); ++p)
    if (&lblCardB[static_cast<size_t>(p)] != &card) lblCardB[static_cast<size_t>(p)].marked = 0;
}

void GameModel::OnMessage(const net::ClearCards&) {
  PlayClick();
  for (int p = 1; p <= N(); ++p) lblCardB[static_cast<size_t>(p)].marked = 0;
}

void GameModel::OnMessage(const net::DiscardClick&) {
  PlayClick();
  lblDiscardPile.marked ^= 1;
}

void GameModel::OnMessage(const net::Look&) {
  PlayClick();
  lblDrawPile.caption = CardFace(g_.DrawTop());
  lblDrawPile.marked = 1;
}

void GameModel::OnMessage(const net::DiscardMove& m) {
  PlayB({MoveKind::kTakeDiscard, kSideB, m.slot});
}

void GameModel::OnMessage(const net::DrawMove& m) {
  PlayB({MoveKind::kTakeDraw, kSideB, m.slot});
}

void GameModel::OnMessage(const net::Pass&) {
  PlayB({MoveKind::kPass, kSideB});
}

// cmdPlayB: the opponent's completed pile move, as side A's is completed on its own screen.
void GameModel::PlayB(const Move& m) {
  PlayClick();
  remote_.move_due = false;
  Hide(cmdPlayB);
  PlayPileMoveB(m);
}

void GameModel::SwitchemSent(const Move& m) {
  SendMove(m);
  // The invited side switched first; the dealer's Switchem comes next.
  if (!remote_.is_dealer) remote_.switch_awaited = true;
  // As after the deal, play starts whatever the test found.
  if (remote_.is_dealer) EndIfDecided();
  StartTurnB();
}

void GameModel::OnMessage(const net::Switch& m) {
  PlayClick();
  remote_.switch_awaited = false;
  remote_.move_due = false;
  if (!Play({MoveKind::kSwitchem, kSideB, m.pos1, m.pos2})) return;
  ShowCardB(m.pos1);
  ShowCardB(m.pos2);
  for (int p = 1; p <= N(); ++p) lblCardB[static_cast<size_t>(p)].marked = 0;
  if (remote_.is_dealer) return StartSwitchemA();
  EndIfDecided();
  StartOfPlay();
}

void GameModel::OnMessage(const net::Smack& m) {
  remote_.move_due = false;
  AnnounceSmackemB(m.pos1, m.pos2);
}

void GameModel::OnMessage(const net::Take& m) {
  remote_.move_due = false;
  AnnounceTakemB(m.own, m.other);
}

void GameModel::OnMessage(const net::Quit&) {
  OpponentGone(cmdQuitReceived);
}

void GameModel::OnMessage(const net::Exit&) {
  OpponentGone(cmdExitReceived);
}

void GameModel::OpponentGone(Control& prompt) {
  if (remote_.session.phase() == net::Session::Phase::kInvited) invitation_dismissed_ = true;
  remote_.session.Ended();
  // A game against the computer is this player's own business: it goes on.
  if (game_running_ && vs_computer_) return;
  QuitGame();
  EnableBetweenRemoteGames();
  Prompt(prompt);
}

void GameModel::EnableBetweenRemoteGames() {
  for (Control* c : {&cmdNew, &mnuFileNewGame, &mnuPopupFileNewGame, &optVsComputer, &mnuVsComputer,
                     &optVsHuman, &mnuVsHuman, &cmdSetupRemoteOpponent, &mnuSetupRemoteOpponent})
    c->enabled = true;
}

// The six network prompts: each hides itself; most end the game.
void GameModel::AcknowledgePrompt(Control& prompt) {
  Hide(prompt);
  if (&prompt == &cmdQuitReceived || &prompt == &cmdExitReceived) {
    EnableBetweenRemoteGames();
    if (&prompt == &cmdExitReceived) {
      SetVsComputer();
      AddNews("Your opponent has exited: you now play against the computer.");
    }
    return;
  }
  if (&prompt != &cmdInvitationAccepted) QuitGame();
}

void GameModel::BeginGameFlags() {
  first_turn_ = true;
  selecting_ = Selecting::kNone;
  pending_ = Pending::kNone;
  remote_.switch_awaited = false;
  remote_.move_due = false;
  game_running_ = true;
  game_over_ = false;
  shown_face_up_ = learn_mode_ || judgement_shown_;
  undo_.points.clear();
  undo_.used = false;
  undo_.draw_seen.fill(DrawSeen::kNo);
}

// New Game as the opponent choice offers it between games; during a game it stays out of reach.
void GameModel::RestoreNewGame() {
  if (game_running_) return;
  cmdNew.enabled = mnuFileNewGame.enabled = mnuPopupFileNewGame.enabled =
      vs_computer_ || remote_.opponent_setup;
}

// From an invitation sent or accepted until the game with the opponent is decided, Quit This Game
// is the way back for either player, whatever message was lost; afterwards the result button is.
void GameModel::RefreshQuit() {
  using Phase = net::Session::Phase;
  const Phase p = remote_.session.phase();
  const bool open = p == Phase::kInviting || p == Phase::kAwaitingDeal ||
                    (p == Phase::kPlaying && game_running_ && !game_over_);
  if (open)
    Show(cmdQuit, true, true);
  else if (game_running_ && vs_computer_)
    return;  // the computer game's own
  else
    Show(cmdQuit, game_running_, false);
  mnuFileQuitGame.enabled = mnuPopupFileQuitGame.enabled = cmdQuit.enabled;
}

}  // namespace bq
