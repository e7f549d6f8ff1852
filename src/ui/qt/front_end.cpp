#include "ui/qt/front_end.h"

#include <QCheckBox>
#include <QMessageBox>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <iterator>
#include <vector>

#include "ui/model/how_to_model.h"
#include "ui/qt/about_window.h"
#include "ui/qt/accessible_widgets.h"
#include "ui/qt/app_paths.h"
#include "ui/qt/communicate_dialog.h"
#include "ui/qt/game_window.h"
#include "ui/qt/generic_window.h"
#include "ui/qt/how_to_window.h"
#include "ui/qt/stats_window.h"

namespace bq::qt {
namespace {

bool AskAbandon(QWidget* parent, bool& dont_ask_again) {
  QMessageBox box(QMessageBox::Question, QStringLiteral("Bramblequay"),
                  QStringLiteral("Abandon this game? It will not be counted."),
                  QMessageBox::Yes | QMessageBox::No, parent);
  box.setObjectName(QStringLiteral("abandonQuestion"));
  box.setDefaultButton(QMessageBox::Yes);
  box.setEscapeButton(QMessageBox::No);
  auto* again = new QCheckBox(QStringLiteral("Don't ask again"), &box);
  box.setCheckBox(again);
  const bool yes = box.exec() == QMessageBox::Yes;
  dont_ask_again = again->isChecked();
  return yes;
}

}  // namespace

FrontEnd::FrontEnd(AppModel& app) : app_(app), data_dir_(DataDir(ExecutableDir())) {
  InstallAccessibleWidgets();
  game_ = std::make_unique<GameWindow>(*this, app_.game());
  if (net::Link* link = app_.link()) {
    link->SetReceiver([this](const std::string& message) { Receive(message); });
    link->SetStrangerReporter([this](const std::string& host, int port) {
      if (!app_.game().StrangerIsNew(host, port)) return;  // a flood costs no redrawing
      arrived_.push_back({"", host, port});
      if (!busy_) HandleArrivals();
    });
  }
  clock_.setInterval(1000);
  connect(&clock_, &QTimer::timeout, this, [this] {
    if (!busy_ && !finished_ && app_.game().SilenceDue())
      Dispatch([this] {
        app_.Tick();
        return AppModel::Result::kDone;
      });
  });
  clock_.start();
}

// A datagram is an event like a click. One that comes while another event is being handled (a
// message box runs its own event loop) waits until that event is over.
void FrontEnd::Receive(const std::string& message) {
  arrived_.push_back({message, "", 0});
  if (!busy_) HandleArrivals();
}

void FrontEnd::HandleArrivals() {
  busy_ = true;
  while (!arrived_.empty() && !finished_) {
    const Arrival next = arrived_.front();
    arrived_.erase(arrived_.begin());
    Dispatch([&] {
      if (next.stranger_host.empty())
        app_.Receive(next.message);
      else
        app_.Stranger(next.stranger_host, next.stranger_port);
      return AppModel::Result::kDone;
    });
  }
  busy_ = false;
}

FrontEnd::~FrontEnd() {
  // The dialogs are children of the windows they belong to; take them down child first.
  others_.clear();
  confirm_.reset();
  stats_.reset();
  game_.reset();
}

void FrontEnd::Start() {
  app_.Load();
  RefreshAll();
  game_->PlaceAtStoredPosition();
  game_->show();
  game_->activateWindow();  // keys work at once, with or without a window manager
  game_->binder().RestoreFocus({});
}

QWidget* FrontEnd::View(std::string_view window) const {
  if (window == "frmGame") return game_.get();
  if (window == "frmStats") return stats_.get();
  if (window == "frmConfirmClearStats") return confirm_.get();
  const auto other = others_.find(window);
  return other != others_.end() ? other->second.get() : nullptr;
}

ControlBinder* FrontEnd::Binder(std::string_view window) const {
  if (window == "frmGame" && game_) return &game_->binder();
  if (window == "frmStats" && stats_) return &stats_->binder();
  if (window == "frmConfirmClearStats" && confirm_) return &confirm_->binder();
  const auto other = others_.find(window);
  return other != others_.end() ? &other->second->binder() : nullptr;
}

std::vector<std::string> FrontEnd::OpenWindows() const {
  std::vector<std::string> open;
  for (const char* window : {"frmGame", "frmStats", "frmConfirmClearStats"})
    if (Binder(window) != nullptr && app_.IsOpen(window)) open.emplace_back(window);
  for (const auto& [window, view] : others_)
    if (app_.IsOpen(window)) open.push_back(window);
  return open;
}

void FrontEnd::RefreshAll() {
  if (game_) game_->Refresh();
  if (stats_ && app_.IsOpen("frmStats")) stats_->Refresh();
  if (confirm_ && app_.IsOpen("frmConfirmClearStats")) confirm_->Refresh();
  for (const auto& [window, view] : others_)
    if (app_.IsOpen(window)) view->Refresh();
}

AppModel::Result FrontEnd::Dispatch(const std::function<AppModel::Result()>& event) {
  if (finished_) return AppModel::Result::kIgnored;
  std::vector<std::pair<std::string, ControlBinder::FocusMark>> marks;
  for (const std::string& window : OpenWindows())
    marks.emplace_back(window, Binder(window)->MarkFocus());
  pending_popup_.clear();

  const bool outer = !busy_;
  busy_ = true;
  const AppModel::Result result = event();
  if (outer) busy_ = false;
  if (app_.exited()) {
    Finish();
    return result;
  }
  RefreshAll();
  for (const std::string& window : OpenWindows()) {
    ControlBinder::FocusMark before;
    for (const auto& [w, mark] : marks)
      if (w == window) before = mark;
    Binder(window)->RestoreFocus(before);
  }
  if (!pending_popup_.empty()) game_->ShowPopup(pending_popup_, popup_pos_);
  if (outer && !arrived_.empty()) HandleArrivals();
  return result;
}

AppModel::Result FrontEnd::Click(const std::string& full_name) {
  static constexpr std::string_view kAbandoning[] = {
      "cmdQuit", "mnuFileQuitGame", "mnuPopupFileQuitGame", "mnuFileExit", "mnuPopupFileExit"};
  const Control* c = app_.Find(full_name);
  if (c != nullptr && c->visible && c->enabled && !app_.IsOpen("frmConfirmClearStats") &&
      std::find(std::begin(kAbandoning), std::end(kAbandoning), full_name) !=
          std::end(kAbandoning) &&
      !MayAbandon())
    return AppModel::Result::kIgnored;
  return Dispatch([&] { return app_.Click(full_name); });
}

bool FrontEnd::MayAbandon() {
  GameModel& game = app_.game();
  if (finished_ || !game.counted_game_running() || !game.ask_before_abandoning()) return true;
  bool dont_ask_again = false;
  const bool yes = abandon_question_ ? abandon_question_(dont_ask_again)
                                     : AskAbandon(DialogParent(), dont_ask_again);
  // Ticked beside No it would mean "never quit"; it only ever spares the Yes.
  if (yes && dont_ask_again) game.set_ask_before_abandoning(false);
  return yes;
}

AppModel::Result FrontEnd::RightClick(const std::string& full_name, QPoint global_pos) {
  popup_pos_ = global_pos;
  return Dispatch([&] { return app_.RightClick(full_name); });
}

AppModel::Result FrontEnd::ClickBackground(bool ctrl_alt) {
  return Dispatch([&] { return app_.ClickBackground(ctrl_alt); });
}

AppModel::Result FrontEnd::Type(const std::string& full_name, const std::string& text) {
  return Dispatch([&] { return app_.Type(full_name, text); });
}

AppModel::Result FrontEnd::Close(const std::string& window) {
  return Dispatch([&] { return app_.Close(window); });
}

void FrontEnd::WindowOpened(const std::string& window) {
  if (window == "mnuPopupForm" || window == "mnuPopupCard") {
    pending_popup_ = window;  // shown once the event is over and the menu is up to date
    return;
  }
  if (window == "frmStats") {
    if (!stats_) {
      stats_ = std::make_unique<StatsWindow>(*this, *app_.Window(window), game_.get());
      stats_->Refresh();
      stats_->adjustSize();
      CentreOver(stats_.get(), game_.get());
    }
    stats_->Refresh();
    stats_->show();
    stats_->raise();
    stats_->activateWindow();
  } else if (window == "frmConfirmClearStats") {
    if (!confirm_) {
      QWidget* parent = stats_ ? static_cast<QWidget*>(stats_.get()) : game_.get();
      confirm_ = std::make_unique<ConfirmClearDialog>(*this, *app_.Window(window), parent);
    }
    confirm_->Refresh();
    confirm_->show();
    confirm_->raise();
    confirm_->activateWindow();
  } else if (app_.Window(window) != nullptr && window != "frmGame") {
    auto& view = others_[window];
    if (!view) {
      view = MakeWindow(window);
      view->Refresh();
      view->adjustSize();
      CentreOver(view.get(), game_.get());
    }
    view->Refresh();
    view->show();
    view->raise();
    view->activateWindow();
  }
}

std::unique_ptr<ModelWindow<QWidget>> FrontEnd::MakeWindow(const std::string& window) {
  if (window == "frmAbout")
    return std::make_unique<AboutWindow>(*this, *app_.Window(window), game_.get());
  if (window == "frmHowTo") return std::make_unique<HowToWindow>(*this, app_.how_to(), game_.get());
  if (window == "frmCommunicate")
    return std::make_unique<CommunicateDialog>(*this, *app_.Window(window), game_.get());
  return std::make_unique<GenericWindow>(*this, *app_.Window(window), game_.get());
}

void FrontEnd::WindowClosed(const std::string& window) {
  if (QWidget* view = View(window); view != nullptr && window != "frmGame") view->hide();
}

QWidget* FrontEnd::DialogParent() {
  if (confirm_ && confirm_->isVisible()) return confirm_.get();
  if (stats_ && stats_->isVisible()) return stats_.get();
  return game_.get();
}

void FrontEnd::Finish() {
  finished_ = true;
  if (confirm_) confirm_->hide();
  if (stats_) stats_->hide();
  for (const auto& [window, view] : others_) view->hide();
  if (game_) game_->hide();
  emit exited();
}

}  // namespace bq::qt
