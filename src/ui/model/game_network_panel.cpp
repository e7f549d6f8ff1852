// The link to the other copy: the connection, what is sent, the wait for the opponent and the
// strangers turned away.
#include "net/session.h"
#include "ui/model/game_model.h"

namespace bq {
namespace {

constexpr const char* kWinsockFailed = "Winsock failed to communicate with remote server";
// Beyond this many, further strangers are ignored without a word: a flood of forged senders
// must not keep rewriting the prompt line.
constexpr size_t kMaxStrangersTold = 64;

// The answers, a quit and an exit concern the exchange with the opponent whatever game is on the
// board; every other message belongs to a game against them.
bool AboutTheSession(const net::Message& m) {
  return std::holds_alternative<net::Accept>(m) || std::holds_alternative<net::Reject>(m) ||
         std::holds_alternative<net::Quit>(m) || std::holds_alternative<net::Exit>(m);
}

}  // namespace

void GameModel::SetLink(net::Link* link) {
  remote_.link = link;
}

std::string GameModel::LocalIP() const {
  return remote_.link ? remote_.link->LocalIP() : "127.0.0.1";
}

bool GameModel::ConfigureConnection(std::string_view ip_b, std::string_view port_b,
                                    std::string_view port_a) {
  const std::string host(net::Trim(ip_b));
  const auto remote_port = net::ParsePort(port_b);
  const bool bound = remote_.link != nullptr && remote_.link->LocalPort() != 0;
  const auto local_port = bound ? std::optional<long>(0) : net::ParsePort(port_a);
  std::string why;
  if (remote_.link == nullptr)
    why = "This copy of the program has no network connection.";
  else if (!remote_port)
    why = "The opponent's port \"" + std::string(net::Trim(port_b)) + "\" is not a number.";
  else if (!local_port)
    why = "Your port \"" + std::string(net::Trim(port_a)) + "\" is not a number.";
  else
    why = remote_.link->Configure(host, *remote_port, *local_port);
  if (!why.empty()) {
    platform_.CriticalBox(kWinsockFailed, why);
    return false;
  }
  remote_.host = host;
  const bool usual = *remote_port >= 1 && *remote_port <= 65535;
  last_connection_ = {host, usual ? static_cast<int>(*remote_port) : 0, remote_.link->LocalPort()};
  remote_.opponent_setup = true;
  SetVsHuman();
  return true;
}

void GameModel::ShowNoOpponentInformation() {
  StatusBar1[1].caption = "No opponent information";
}

void GameModel::SendToOpponent(const net::Message& m) {
  if (remote_.link == nullptr || (vs_computer_ && !AboutTheSession(m))) return;
  remote_.link->Send(net::Encode(m));
  StatusBar1[3].caption = StatusBar1[2].caption;
  StatusBar1[2].caption = net::SentText(m);
}

// Side A's applied move as the opponent's copy hears it.
void GameModel::SendMove(const Move& m) {
  switch (m.kind) {
    case MoveKind::kTakeDiscard:
      return SendToOpponent(net::DiscardMove{m.slot1});
    case MoveKind::kTakeDraw:
      return SendToOpponent(net::DrawMove{m.slot1});
    case MoveKind::kPass:
      return SendToOpponent(net::Pass{});
    case MoveKind::kSwitchem:
      return SendToOpponent(net::Switch{m.slot1, m.slot2});
    case MoveKind::kSmackem:
      return SendToOpponent(net::Smack{m.slot1, m.slot2});
    case MoveKind::kTakem:
      return SendToOpponent(net::Take{m.slot1, m.slot2});
    case MoveKind::kSpendTurn:
    case MoveKind::kBackem:
      return;  // nothing a remote opponent is told
  }
}

void GameModel::RelayClick(const net::Message& m) {
  if (learn_mode_) SendToOpponent(m);
}

net::Moment GameModel::Now() const {
  net::Moment now;
  // A result button does not end play by itself (a Stack dealt in order, say): the game lasts
  // until it is acknowledged or quit, and a move counts while one is due.
  now.in_game = game_running_;
  now.awaiting_switch = remote_.switch_awaited;
  now.awaiting_move = remote_.move_due && g_.turn_owner == kSideB && pending_ == Pending::kNone &&
                      !remote_.switch_awaited;
  return now;
}

void GameModel::Receive(const std::string& text) {
  BeginEvent();
  ReceiveMessage(text);
  EndEvent();
}

bool GameModel::AwaitingOpponent() const {
  using Phase = net::Session::Phase;
  switch (remote_.session.phase()) {
    case Phase::kInviting:
      return true;
    case Phase::kAwaitingDeal:
      return !(game_running_ && vs_computer_);
    case Phase::kPlaying:
      return game_running_ && !game_over_ && pending_ == Pending::kNone &&
             (remote_.move_due || remote_.switch_awaited);
    default:
      return false;
  }
}

bool GameModel::SilenceDue() const {
  return remote_.waiting_since_ms >= 0 && !remote_.silence_told &&
         platform_.NowMs() - remote_.waiting_since_ms >= kSilenceMs;
}

void GameModel::Tick() {
  if (!SilenceDue()) return;
  BeginEvent();
  remote_.silence_told = true;
  EndEvent();
}

bool GameModel::StrangerIsNew(const std::string& host, int port) const {
  return remote_.strangers.size() < kMaxStrangersTold &&
         remote_.strangers.count(host + ":" + std::to_string(port)) == 0;
}

void GameModel::Stranger(const std::string& host, int port) {
  if (!StrangerIsNew(host, port)) return;
  BeginEvent();
  const std::string sender = host + ":" + std::to_string(port);
  remote_.strangers.insert(sender);
  AddNews("Ignored a message from " + sender + ": not your opponent's address.");
  EndEvent();
}

bool GameModel::TakeInvitationRequest() {
  return std::exchange(invitation_requested_, false);
}

bool GameModel::TakeCommunicateRequest() {
  return std::exchange(communicate_requested_, false);
}

bool GameModel::TakeInvitationDismissal() {
  return std::exchange(invitation_dismissed_, false);
}

}  // namespace bq
