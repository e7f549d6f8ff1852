#include <unistd.h>
#include <QApplication>
#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include "app/driver.h"
#include "net/loaded_link.h"
#include "selfplay/run.h"
#include "store/settings.h"
#include "ui/model/app_model.h"
#include "ui/qt/app_paths.h"
#include "ui/qt/command_line.h"
#include "ui/qt/front_end.h"
#include "ui/qt/qt_platform.h"
#include "ui/qt/quit_signals.h"

#ifndef BQ_VERSION
#define BQ_VERSION "0.0.0"
#endif

namespace {

bool HasDisplay(const std::vector<std::string>& qt_args) {
  for (const std::string& arg : qt_args)
    if (arg == "-platform" || arg == "--platform") return true;
  for (const char* var : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    const char* value = std::getenv(var);
    if (value != nullptr && *value != '\0') return true;
  }
  return false;
}

// Runs `then` once, just after `window` has been painted for the first time.
class AfterFirstPaint : public QObject {
 public:
  AfterFirstPaint(QWidget* window, std::function<void()> then)
      : QObject(window), then_(std::move(then)) {
    window->installEventFilter(this);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      watched->removeEventFilter(this);
      QTimer::singleShot(0, this, [this] {
        then_();
        deleteLater();
      });
    }
    return false;
  }

 private:
  std::function<void()> then_;
};

}  // namespace

int main(int argc, char** argv) {
  using namespace bq::qt;
  // Under a file-size limit a save then fails like any other write, instead of killing us.
  std::signal(SIGXFSZ, SIG_IGN);
  // Everything up to the display check runs without QApplication, which aborts with no display.
  std::vector<std::string> args(argv + 1, argv + argc);
  CommandLine cl = ParseCommandLine(args);
  if (!cl.error.empty()) {
    std::cerr << "bramblequay: " << cl.error << " (see --help)\n";
    return 2;
  }
  if (cl.help) {
    std::cout << UsageText();
    return 0;
  }
  if (cl.version) {
    std::cout << "bramblequay " << BQ_VERSION << '\n';
    return 0;
  }
  if (cl.selfplay) {
    bq::selfplay::RunConfig run;
    std::string error;
    const auto options = bq::selfplay::ParseOptionList(cl.selfplay_options, error);
    if (!options) {
      std::cerr << "bramblequay: " << error << '\n';
      return 2;
    }
    if (!cl.selfplay_players.empty()) {
      const auto players = bq::selfplay::ParsePlayers(cl.selfplay_players, error);
      if (!players) {
        std::cerr << "bramblequay: " << error << '\n';
        return 2;
      }
      run.players = *players;
    }
    run.games = *cl.selfplay;
    run.options = *options;
    run.seed = cl.seed;
    run.csv_path = cl.csv;
    run.progress = isatty(STDOUT_FILENO) == 1;
    return bq::selfplay::RunSelfPlay(run, std::cout, std::cerr);
  }
  const QString exe_dir = ExecutableDir();
  const std::string settings =
      ResolveSettingsPath(QString::fromStdString(cl.settings), exe_dir, UserConfigDir())
          .toStdString();
  const bq::SettingsFileCheck check = bq::CheckSettingsFile(settings, !cl.settings.empty());
  if (!check.message.empty()) std::cerr << "bramblequay: " << Printable(check.message) << '\n';
  if (check.refused) return 2;
  if (cl.headless) {
    // No display is needed, but datagrams arrive through an event loop.
    QCoreApplication core(argc, argv);
    bq::net::LoadedLink link(ModulePath(exe_dir, QStringLiteral("bramblequay-net")).toStdString());
    bq::DriverOptions options;
    options.link = &link;
    options.wait = bq::net::RunEventsFor;
    options.settings_path = settings;
    options.seed = cl.seed;
    if (cl.screen_width) options.screen_width = *cl.screen_width;
    return bq::RunHeadless(std::cin, std::cout, options);
  }
  if (!HasDisplay(cl.qt_args)) {
    std::cerr << "bramblequay: no display found; run with --headless, or under a virtual display "
                 "(xvfb-run make run)\n";
    return 1;
  }

  // Qt sees its own options only, so that a settings file named "-reverse" stays a file name.
  std::vector<char*> qt_argv = {argv[0]};
  std::vector<std::string> qt_args = cl.qt_args;
  for (std::string& arg : qt_args) qt_argv.push_back(arg.data());
  qt_argv.push_back(nullptr);
  int qt_argc = static_cast<int>(qt_argv.size()) - 1;
  QApplication app(qt_argc, qt_argv.data());
  QApplication::setApplicationName(QStringLiteral("Bramblequay"));
  QApplication::setApplicationVersion(QStringLiteral(BQ_VERSION));
  const QString data_dir = DataDir(exe_dir);
  // The desktop file name ties the windows to the launcher.
  QGuiApplication::setDesktopFileName(QLatin1String(kAppId));
  // The model's exit sequence decides when the program ends, not the last window closing.
  QApplication::setQuitOnLastWindowClosed(false);

  QtPlatform platform({cl.seed, cl.screen_width, data_dir});
  platform.set_sound_module(ModulePath(exe_dir, QStringLiteral("bramblequay-sound")));
  bq::AppModel model(platform, settings);
  bq::net::LoadedLink link(ModulePath(exe_dir, QStringLiteral("bramblequay-net")).toStdString());
  model.SetLink(&link);
  FrontEnd front(model);
  platform.set_host(&front);
  QObject::connect(&front, &FrontEnd::exited, &app, &QCoreApplication::quit, Qt::QueuedConnection);
  front.Start();
  if (front.finished()) return 0;
  // A player who started the game from a menu never sees standard error: a damaged settings file
  // that was set aside is told over the window too.
  if (!check.message.empty()) platform.ShowNotice(Printable(check.message));
  // Every window takes the application's icon. Reading its eight sizes and handing them to the
  // window system takes as long as a good part of the start-up, so it comes after the first frame
  // (a zero timer alone would fire before it).
  const auto set_icon = [data_dir] { QApplication::setWindowIcon(AppIcon(data_dir)); };
  if (QWidget* game = front.View("frmGame"))
    new AfterFirstPaint(game, set_icon);
  else
    QTimer::singleShot(0, &app, set_icon);
  RunOnTerminationSignals(&front, [&front] { front.Close("frmGame"); });
  const int code = QApplication::exec();
  platform.set_host(nullptr);
  return code;
}
