#include "ui/model/communicate_model.h"

#include "ui/model/game_model.h"

namespace bq {

bool NetworkDialog::Close() {
  if (!open_) return false;
  open_ = false;
  platform_.WindowClosed(Name());
  return true;
}

void NetworkDialog::Show(std::string focus) {
  if (!open_) platform_.WindowOpened(Name());
  open_ = true;
  SetFocus(std::move(focus));
}

CommunicateModel::CommunicateModel(Platform& platform, GameModel& game)
    : NetworkDialog(platform, game, "frmCommunicate") {
  caption_.caption = "Opponent/Communication Settings";
  lbl_instructions_.caption = "Fill in the blanks, then click Send.";
  lbl_you_.caption = "You";
  lbl_opponent_.caption = "Opponent";
  lbl_ip_address_.caption = "IP Address";
  lbl_port_number_.caption = "Port Number (1000 - 9999)";
  txt_ip_a_.tooltip = "Give this address to your opponent.";
  txt_port_a_.tooltip = "Any integer from 1000 to 9999 except your opponent's port number.";
  txt_ip_b_.tooltip = "Get this address from your opponent.";
  txt_port_b_.tooltip = "Any integer from 1000 to 9999 except your port number.";
  cmd_send_.caption = "Send";
  cmd_cancel_.caption = "Cancel";
  cmd_help_.caption = "Help";
  Register("Caption", caption_);
  Register("lblInstructions", lbl_instructions_);
  Register("lblYou", lbl_you_);
  Register("lblOpponent", lbl_opponent_);
  Register("lblIPAddress", lbl_ip_address_);
  Register("lblPortNumber", lbl_port_number_);
  Register("txtIPA", txt_ip_a_);
  Register("txtPortA", txt_port_a_);
  Register("txtIPB", txt_ip_b_);
  Register("txtPortB", txt_port_b_);
  Register("cmdSend", cmd_send_);
  Register("cmdCancel", cmd_cancel_);
  Register("cmdHelp", cmd_help_);
}

void CommunicateModel::Open() {
  txt_ip_a_.caption = game_.LocalIP();
  // Once bound, the port is this copy's for the rest of the run: show it as it is.
  if (const net::Link* link = game_.link(); link != nullptr && link->LocalPort() != 0)
    txt_port_a_.caption = std::to_string(link->LocalPort());
  // Boxes left empty offer the last connection set up, in this run or an earlier one.
  const GameModel::Connection& last = game_.last_connection();
  auto offer = [](Control& box, const std::string& text) {
    if (box.caption.empty()) box.caption = text;
  };
  offer(txt_ip_b_, last.opponent_address);
  if (last.opponent_port != 0) offer(txt_port_b_, std::to_string(last.opponent_port));
  if (last.local_port != 0) offer(txt_port_a_, std::to_string(last.local_port));
  game_.ShowNoOpponentInformation();
  if (txt_port_a_.caption.empty())
    Show("txtPortA");
  else if (txt_ip_b_.caption.empty() || txt_port_b_.caption.empty())
    Show("txtIPB");
  else
    Show("cmdSend");
}

bool CommunicateModel::Click(std::string_view control) {
  if (!IsOpen()) return false;
  if (control == "cmdSend") {
    Send();
    return true;
  }
  if (control == "cmdCancel") return Close();
  if (control == "cmdHelp") {
    platform_.OpenHelp();
    return true;
  }
  return Find(control) != nullptr;
}

void CommunicateModel::Send() {
  // Any box left empty: nothing happens.
  if (txt_port_a_.caption.empty() || txt_ip_b_.caption.empty() || txt_port_b_.caption.empty())
    return;
  if (game_.ConfigureConnection(txt_ip_b_.caption, txt_port_b_.caption, txt_port_a_.caption))
    Close();
}

bool CommunicateModel::Type(std::string_view control, std::string_view text) {
  if (!IsOpen() || control.substr(0, 3) != "txt") return false;
  Control* box = Find(control);
  if (box == nullptr || !box->visible || !box->enabled) return false;
  box->caption = std::string(text);
  return true;
}

InvitationModel::InvitationModel(Platform& platform, GameModel& game)
    : NetworkDialog(platform, game, "frmInvitation") {
  caption_.caption = "Bramblequay play invitation";
  lbl_accept_reject_.caption =
      "You have received an invitation to play Bramblequay.  Click Yes to accept.  Click No to "
      "reject.";
  cmd_yes_.caption = "Yes";
  cmd_no_.caption = "No";
  Register("Caption", caption_);
  Register("lblAcceptReject", lbl_accept_reject_);
  Register("lblFrom", lbl_from_);
  Register("cmdYes", cmd_yes_);
  Register("cmdNo", cmd_no_);
}

void InvitationModel::Open() {
  // Only the configured opponent's datagrams get this far, so that is who invites.
  const GameModel::Connection& from = game_.last_connection();
  lbl_from_.caption.clear();
  if (!from.opponent_address.empty())
    lbl_from_.caption = "The invitation comes from " + from.opponent_address + ", port " +
                        std::to_string(from.opponent_port) + ".";
  Show("cmdYes");
}

bool InvitationModel::Click(std::string_view control) {
  if (!IsOpen()) return false;
  if (control != "cmdYes" && control != "cmdNo") return Find(control) != nullptr;
  game_.AnswerInvitation(control == "cmdYes");
  return Close();
}

}  // namespace bq
