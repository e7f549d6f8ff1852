#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "ui/model/game_model.h"
#include "ui/model/platform.h"

namespace bq {

class AboutModel;
class HowToModel;
class CommunicateModel;
class InvitationModel;
class StatsModel;
class ConfirmClearModel;

// Every window of the program and the routing of events between them. Control names are those
// of the game window ("cmdNew", "lblCardA(3)") or carry their window's name and a dot
// ("frmStats.cmdClearStats").
class AppModel {
 public:
  enum class Result { kDone, kIgnored, kUnknown };

  AppModel(Platform& platform, std::string settings_path);
  ~AppModel();

  void Load();  // the game window's loading

  GameModel& game() { return game_; }
  const GameModel& game() const { return game_; }
  StatsModel& stats() { return *stats_; }
  ConfirmClearModel& confirm();
  HowToModel& how_to() { return *how_to_; }

  CommunicateModel& communicate() { return *communicate_; }
  InvitationModel& invitation() { return *invitation_; }

  // The connection with the opponent, owned by the front end; datagrams from it go to Receive.
  void SetLink(net::Link* link) { game_.SetLink(link); }
  net::Link* link() const { return game_.link(); }
  void Receive(const std::string& message);
  // A datagram from someone other than the opponent, and the clock's event (GameModel::Tick).
  void Stranger(const std::string& host, int port);
  void Tick();

  // "frmGame", "frmStats", "frmConfirmClearStats", "frmAbout", "frmHowTo", "frmCommunicate",
  // "frmInvitation"; nullptr for an unknown window.
  WindowModel* Window(std::string_view name);
  bool IsOpen(std::string_view window) const;
  // Splits "frmStats.cmdYes" into its window and control; a plain name is the game window's.
  static std::pair<std::string_view, std::string_view> Split(std::string_view full_name);
  // The control by full name, or nullptr.
  Control* Find(std::string_view full_name);

  Result Click(std::string_view full_name);
  Result RightClick(std::string_view full_name);
  Result ClickBackground(bool ctrl_alt);
  // Sets a text box's text, as typed; kUnknown for anything that is not a text box.
  Result Type(std::string_view full_name, std::string_view text);
  // Closes a window by its frame; closing frmGame runs the exit sequence, closing frmInvitation
  // answers No.
  Result Close(std::string_view window);
  bool exited() const { return game_.exited(); }

 private:
  void AfterGameEvent();
  void CloseOthers();
  bool Modal() const;  // the confirmation dialog holds every other window

  Platform& platform_;
  GameModel game_;
  std::unique_ptr<StatsModel> stats_;
  std::unique_ptr<AboutModel> about_;
  std::unique_ptr<HowToModel> how_to_;
  std::unique_ptr<CommunicateModel> communicate_;
  std::unique_ptr<InvitationModel> invitation_;
};

}  // namespace bq
