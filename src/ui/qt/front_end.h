#pragma once

#include <QObject>
#include <QPoint>
#include <QString>
#include <QTimer>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ui/model/app_model.h"
#include "ui/qt/qt_platform.h"

class QWidget;

namespace bq::qt {

class ControlBinder;
class GameWindow;
class StatsWindow;
class ConfirmClearDialog;
template <typename Base>
class ModelWindow;

// The Qt side of the program: owns the windows, turns their input into model events, and after
// every event re-reads every open window model onto its widgets. No game rule lives here.
class FrontEnd : public QObject, public WindowHost {
  Q_OBJECT
 public:
  explicit FrontEnd(AppModel& app);
  ~FrontEnd() override;

  // The game window's loading: the model loads, the window is filled, placed and shown.
  void Start();

  AppModel& app() { return app_; }
  AppModel::Result Click(const std::string& full_name);
  AppModel::Result RightClick(const std::string& full_name, QPoint global_pos);
  AppModel::Result ClickBackground(bool ctrl_alt);
  AppModel::Result Close(const std::string& window);
  AppModel::Result Type(const std::string& full_name, const std::string& text);
  // A datagram from the opponent, handled as an event of its own.
  void Receive(const std::string& message);

  GameWindow* game_window() const { return game_.get(); }
  // The shown form of a window ("frmGame", "frmStats", ...); nullptr before it first opens.
  QWidget* View(std::string_view window) const;
  void RefreshAll();
  bool finished() const { return finished_; }
  // Where the windows find their pictures; by default the program's data folder.
  const QString& data_dir() const { return data_dir_; }
  void set_data_dir(QString dir) { data_dir_ = std::move(dir); }

  // Before a command that would abandon a counted game (quitting it, leaving the program): asks
  // the player, unless told not to ask again. True to go ahead.
  bool MayAbandon();
  // Asks the question and says whether "Don't ask again" was ticked; by default a message box.
  using AbandonQuestion = std::function<bool(bool& dont_ask_again)>;
  void set_abandon_question(AbandonQuestion question) { abandon_question_ = std::move(question); }

  void WindowOpened(const std::string& window) override;
  void WindowClosed(const std::string& window) override;
  QWidget* DialogParent() override;

 signals:
  // The exit sequence has run; every window is down.
  void exited();

 private:
  AppModel::Result Dispatch(const std::function<AppModel::Result()>& event);
  ControlBinder* Binder(std::string_view window) const;
  std::vector<std::string> OpenWindows() const;
  void Finish();
  std::unique_ptr<ModelWindow<QWidget>> MakeWindow(const std::string& window);
  void HandleArrivals();

  AppModel& app_;
  std::unique_ptr<GameWindow> game_;
  std::unique_ptr<StatsWindow> stats_;
  std::unique_ptr<ConfirmClearDialog> confirm_;
  // The plainer windows: About, How To Play, and any drawn generically.
  std::map<std::string, std::unique_ptr<ModelWindow<QWidget>>, std::less<>> others_;
  bool busy_ = false;  // an event is being handled
  // Datagrams that came during it, handled after it; a stranger's carries its sender.
  struct Arrival {
    std::string message;
    std::string stranger_host;
    int stranger_port = 0;
  };
  std::vector<Arrival> arrived_;
  QTimer clock_;  // the model's Tick, so that a silent opponent is told
  std::string pending_popup_;
  QPoint popup_pos_;
  bool finished_ = false;
  QString data_dir_;
  AbandonQuestion abandon_question_;
};

}  // namespace bq::qt
