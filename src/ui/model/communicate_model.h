#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "ui/model/control.h"
#include "ui/model/platform.h"

namespace bq {

class GameModel;

// A network dialog: shown and taken down by telling the front end.
class NetworkDialog : public WindowModel {
 public:
  bool IsOpen() const { return open_; }
  bool Close();

 protected:
  NetworkDialog(Platform& platform, GameModel& game, std::string name)
      : WindowModel(std::move(name)), platform_(platform), game_(game) {}
  void Show(std::string focus);

  Platform& platform_;
  GameModel& game_;

 private:
  bool open_ = false;
};

// frmCommunicate: the two addresses and two ports of the connection with the opponent. Controls
// in order: "Caption" (the title), lblInstructions, lblYou, lblOpponent, lblIPAddress,
// lblPortNumber, txtIPA, txtPortA, txtIPB, txtPortB, cmdSend, cmdCancel, cmdHelp. Typed texts
// stay in the boxes from one opening to the next; empty ones offer the last connection set up.
class CommunicateModel : public NetworkDialog {
 public:
  CommunicateModel(Platform& platform, GameModel& game);

  void Open();
  bool Click(std::string_view control);
  // Sets a text box's text as typed; false for anything that is not an open text box.
  bool Type(std::string_view control, std::string_view text);

 private:
  void Send();

  Control caption_, lbl_instructions_, lbl_you_, lbl_opponent_, lbl_ip_address_, lbl_port_number_,
      txt_ip_a_, txt_port_a_, txt_ip_b_, txt_port_b_, cmd_send_, cmd_cancel_, cmd_help_;
};

// frmInvitation: the opponent's invitation, answered Yes or No. Controls in order: "Caption",
// lblAcceptReject, lblFrom (ours: who invites), cmdYes, cmdNo. Closing it by the frame answers No
// (AppModel::Close).
class InvitationModel : public NetworkDialog {
 public:
  InvitationModel(Platform& platform, GameModel& game);

  void Open();
  bool Click(std::string_view control);

 private:
  Control caption_, lbl_accept_reject_, lbl_from_, cmd_yes_, cmd_no_;
};

}  // namespace bq
