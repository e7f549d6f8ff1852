#pragma once

#include <QAbstractButton>
#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QStringList>
#include <QTemporaryDir>
#include <QWidget>
#include <deque>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "ui/model/app_model.h"
#include "ui/qt/card_widget.h"
#include "ui/qt/front_end.h"
#include "ui/qt/game_window.h"
#include "ui/qt/qt_platform.h"

namespace bq::qt::test {

// Records what the program asked of the desktop and plays back scripted random numbers (then a
// fixed-seed stream), so a game is the same on every run.
class FakePlatform : public Platform {
 public:
  void PlayClick() override { ++clicks; }
  void Open(const std::string& target) override { opened.push_back(target); }
  void MessageBox(const std::string& text) override { messages.push_back(text); }
  int ScreenWidthPixels() override { return screen_width; }
  void WindowOpened(const std::string& window) override {
    if (host) host->WindowOpened(window);
  }
  void WindowClosed(const std::string& window) override {
    if (host) host->WindowClosed(window);
  }
  void Warn(const std::string& text) override { warnings.push_back(text); }
  float Uniform() override {
    if (!script.empty()) {
      const float r = script.front();
      script.pop_front();
      return r;
    }
    return static_cast<float>(gen() >> 8) * 0x1p-24f;
  }

  WindowHost* host = nullptr;
  std::deque<float> script;
  std::mt19937 gen{20240611};
  int screen_width = 1920;
  int clicks = 0;
  std::vector<std::string> opened, messages, warnings;
};

// One running program: models, windows and a settings file of its own.
struct Session {
  explicit Session(const QString& settings_text = QString()) {
    path = dir.filePath(QStringLiteral("Bramblequay.INI")).toStdString();
    if (!settings_text.isEmpty()) {
      QFile file(QString::fromStdString(path));
      if (file.open(QIODevice::WriteOnly)) file.write(settings_text.toUtf8());
    }
    app = std::make_unique<AppModel>(platform, path);
    front = std::make_unique<FrontEnd>(*app);
    platform.host = front.get();
    front->Start();
  }
  ~Session() { platform.host = nullptr; }

  GameModel& game() { return app->game(); }
  GameWindow* window() { return front->game_window(); }
  template <typename T = QObject>
  T* find(const std::string& name) {
    return window()->findChild<T*>(QString::fromStdString(name));
  }

  QTemporaryDir dir;
  std::string path;
  FakePlatform platform;
  std::unique_ptr<AppModel> app;
  std::unique_ptr<FrontEnd> front;
};

// Every way in which a window's widgets differ from its model; empty when they agree.
inline QStringList Mismatches(QWidget* view, const WindowModel& model) {
  QStringList out;
  auto differ = [&](const std::string& name, const char* what, const QString& shown,
                    const QString& wanted) {
    if (shown != wanted)
      out << QStringLiteral("%1.%2: shown '%3', model '%4'")
                 .arg(QString::fromStdString(name), QLatin1String(what), shown, wanted);
  };
  auto flag = [](bool b) { return b ? QStringLiteral("1") : QStringLiteral("0"); };
  for (const NamedControl& nc : model.Controls()) {
    const Control& c = *nc.control;
    const QString caption = QString::fromStdString(c.caption);
    if (nc.name == "Caption") {
      differ(nc.name, "title", view->windowTitle(), caption);
      continue;
    }
    QObject* object = view->findChild<QObject*>(QString::fromStdString(nc.name));
    if (object == nullptr) {
      out << QStringLiteral("%1: no widget").arg(QString::fromStdString(nc.name));
      continue;
    }
    if (auto* action = qobject_cast<QAction*>(object)) {
      differ(nc.name, "text", action->text(), caption);
      differ(nc.name, "visible", flag(action->isVisible()), flag(c.visible));
      differ(nc.name, "enabled", flag(action->isEnabled()), flag(c.enabled));
      if (action->isCheckable())
        differ(nc.name, "checked", flag(action->isChecked()), flag(c.value));
      continue;
    }
    auto* widget = qobject_cast<QWidget*>(object);
    if (auto* card = qobject_cast<CardLabel*>(widget)) {
      differ(nc.name, "face", card->face(), caption);
      differ(nc.name, "marked", flag(card->marked()), flag(c.marked));
    } else if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
      differ(nc.name, "text", button->text(), caption);
      if (button->isCheckable())
        differ(nc.name, "bold", flag(button->font().bold()), flag(c.marked));
      if (button->isCheckable())
        differ(nc.name, "checked", flag(button->isChecked()), flag(c.value));
    } else if (auto* label = qobject_cast<QLabel*>(widget)) {
      differ(nc.name, "text", label->text(), caption);
    } else if (auto* box = qobject_cast<QGroupBox*>(widget)) {
      differ(nc.name, "title", box->title(), caption);
    } else {
      differ(nc.name, "text", widget->property("text").toString(), caption);
    }
    differ(nc.name, "tooltip", widget->toolTip(), QString::fromStdString(c.tooltip));
    differ(nc.name, "visible", flag(!widget->isHidden()), flag(c.visible));
    differ(nc.name, "enabled", flag(!widget->testAttribute(Qt::WA_ForceDisabled)), flag(c.enabled));
  }
  return out;
}

}  // namespace bq::qt::test
