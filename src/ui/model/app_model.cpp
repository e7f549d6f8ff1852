#include "ui/model/app_model.h"

#include "ui/model/about_model.h"
#include "ui/model/communicate_model.h"
#include "ui/model/how_to_model.h"
#include "ui/model/stats_model.h"

namespace bq {

AppModel::AppModel(Platform& platform, std::string settings_path)
    : platform_(platform),
      game_(platform, std::move(settings_path)),
      stats_(std::make_unique<StatsModel>(platform)),
      about_(std::make_unique<AboutModel>(platform)),
      how_to_(std::make_unique<HowToModel>(platform)),
      communicate_(std::make_unique<CommunicateModel>(platform, game_)),
      invitation_(std::make_unique<InvitationModel>(platform, game_)) {}

AppModel::~AppModel() = default;

void AppModel::Load() {
  game_.Load();
}

ConfirmClearModel& AppModel::confirm() {
  return stats_->Confirm();
}

WindowModel* AppModel::Window(std::string_view name) {
  if (name == "frmGame") return &game_;
  if (name == "frmStats") return stats_.get();
  if (name == "frmConfirmClearStats") return &stats_->Confirm();
  if (name == "frmAbout") return about_.get();
  if (name == "frmHowTo") return how_to_.get();
  if (name == "frmCommunicate") return communicate_.get();
  if (name == "frmInvitation") return invitation_.get();
  return nullptr;
}

bool AppModel::IsOpen(std::string_view window) const {
  if (window == "frmGame") return !game_.exited();
  if (window == "frmStats") return stats_->IsOpen();
  if (window == "frmConfirmClearStats") return stats_->Confirm().IsOpen();
  if (window == "frmAbout") return about_->IsOpen();
  if (window == "frmHowTo") return how_to_->IsOpen();
  if (window == "frmCommunicate") return communicate_->IsOpen();
  if (window == "frmInvitation") return invitation_->IsOpen();
  return false;
}

std::pair<std::string_view, std::string_view> AppModel::Split(std::string_view full_name) {
  const auto dot = full_name.find('.');
  // Status bar panels ("StatusBar1.Panel(2)") belong to the game window.
  if (dot == std::string_view::npos || full_name.substr(0, 3) != "frm")
    return {"frmGame", full_name};
  return {full_name.substr(0, dot), full_name.substr(dot + 1)};
}

Control* AppModel::Find(std::string_view full_name) {
  const auto [window, control] = Split(full_name);
  WindowModel* w = Window(window);
  return w ? w->Find(control) : nullptr;
}

bool AppModel::Modal() const {
  return stats_->Confirm().IsOpen();
}

AppModel::Result AppModel::Click(std::string_view full_name) {
  const auto [window, name] = Split(full_name);
  const Control* c = Find(full_name);
  if (c == nullptr) return Result::kUnknown;
  if (!IsOpen(window) || !c->visible || !c->enabled) return Result::kIgnored;
  if (Modal() && window != "frmConfirmClearStats") return Result::kIgnored;
  bool done = false;
  if (window == "frmGame") {
    done = game_.Click(name);
    AfterGameEvent();
  } else if (window == "frmStats") {
    done = stats_->Click(name);
  } else if (window == "frmAbout") {
    done = about_->Click(name);
  } else if (window == "frmHowTo") {
    done = false;  // pictures and a caption: nothing to click
  } else if (window == "frmCommunicate") {
    done = communicate_->Click(name);
    AfterGameEvent();
  } else if (window == "frmInvitation") {
    done = invitation_->Click(name);
    AfterGameEvent();
  } else {
    done = stats_->Confirm().Click(name);
  }
  return done ? Result::kDone : Result::kIgnored;
}

AppModel::Result AppModel::RightClick(std::string_view full_name) {
  const auto [window, name] = Split(full_name);
  if (window != "frmGame") return Find(full_name) ? Result::kIgnored : Result::kUnknown;
  if (name != "background" && game_.Find(name) == nullptr) return Result::kUnknown;
  if (Modal()) return Result::kIgnored;
  return game_.RightClick(name) ? Result::kDone : Result::kIgnored;
}

AppModel::Result AppModel::ClickBackground(bool ctrl_alt) {
  if (Modal()) return Result::kIgnored;
  return game_.ClickBackground(ctrl_alt) ? Result::kDone : Result::kIgnored;
}

AppModel::Result AppModel::Type(std::string_view full_name, std::string_view text) {
  const auto [window, name] = Split(full_name);
  if (Find(full_name) == nullptr || window != "frmCommunicate" || name.substr(0, 3) != "txt")
    return Result::kUnknown;
  if (Modal()) return Result::kIgnored;
  return communicate_->Type(name, text) ? Result::kDone : Result::kIgnored;
}

void AppModel::Receive(const std::string& message) {
  if (game_.exited()) return;
  game_.Receive(message);
  AfterGameEvent();
}

void AppModel::Stranger(const std::string& host, int port) {
  if (game_.exited()) return;
  game_.Stranger(host, port);
}

void AppModel::Tick() {
  if (game_.exited()) return;
  game_.Tick();
}

AppModel::Result AppModel::Close(std::string_view window) {
  if (Window(window) == nullptr) return Result::kUnknown;
  if (!IsOpen(window)) return Result::kIgnored;
  if (window == "frmConfirmClearStats")
    return stats_->Confirm().Close() ? Result::kDone : Result::kIgnored;
  if (window == "frmStats") {
    if (Modal()) return Result::kIgnored;
    return stats_->Close() ? Result::kDone : Result::kIgnored;
  }
  if (window == "frmAbout") return about_->Close() ? Result::kDone : Result::kIgnored;
  if (window == "frmHowTo") return how_to_->Close() ? Result::kDone : Result::kIgnored;
  if (window == "frmCommunicate") return communicate_->Close() ? Result::kDone : Result::kIgnored;
  if (window == "frmInvitation") {
    const bool done = invitation_->Click("cmdNo");  // so the inviter is never left waiting
    AfterGameEvent();
    return done ? Result::kDone : Result::kIgnored;
  }
  game_.Exit();
  CloseOthers();
  return Result::kDone;
}

// The game window's exit takes every other window with it.
void AppModel::CloseOthers() {
  if (Modal()) stats_->Confirm().Close();
  if (stats_->IsOpen()) stats_->Close();
  about_->Close();
  how_to_->Close();
  communicate_->Close();
  invitation_->Close();
}

void AppModel::AfterGameEvent() {
  if (game_.TakeStatsRequest()) stats_->Open(game_.settings_path(), game_.vs_computer());
  if (game_.TakeAboutRequest()) about_->Open();
  if (game_.TakeCommunicateRequest()) communicate_->Open();
  if (game_.TakeInvitationRequest()) invitation_->Open();
  if (game_.TakeInvitationDismissal()) invitation_->Close();
  if (game_.exited()) CloseOthers();
}

}  // namespace bq
