#pragma once

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QGroupBox>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <memory>
#include <string>

#include "ui/model/app_model.h"
#include "ui/qt/card_widget.h"
#include "ui/qt/front_end.h"
#include "ui/qt/game_window.h"
#include "ui/qt/qt_platform.h"

namespace bq::qt::test {

// One running program with a settings file of its own and a fixed seed, so every run deals the
// same game. The empty data folder keeps it silent.
struct Session {
  explicit Session(const char* settings = "") {
    // The desktop's fonts vary from machine to machine; the tests' do not.
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    QFile file(dir.filePath(QStringLiteral("Bramblequay.INI")));
    if (*settings != '\0' && file.open(QIODevice::WriteOnly)) file.write(settings);
    file.close();
    path = file.fileName().toStdString();
    app = std::make_unique<AppModel>(platform, path);
    front = std::make_unique<FrontEnd>(*app);
    platform.set_host(front.get());
    front->set_abandon_question([this](bool&) {
      ++abandon_questions;
      return true;
    });
    front->Start();
  }
  ~Session() { platform.set_host(nullptr); }

  GameModel& game() { return app->game(); }
  GameWindow* window() { return front->game_window(); }
  template <typename T = QWidget>
  T* find(const std::string& name) {
    return window()->findChild<T*>(QString::fromStdString(name));
  }
  void click(std::initializer_list<const char*> names) {
    // On the caption, as a player would: a check box or option button wider than its caption
    // takes no click beside it.
    for (const char* name : names) {
      QWidget* w = find(name);
      QTest::mouseClick(w, Qt::LeftButton, {},
                        QPoint(std::min(w->width(), w->sizeHint().width()) / 2, w->height() / 2));
    }
  }

  QTemporaryDir dir;
  QtPlatform platform{{20240611u, 1920, dir.path()}};
  std::string path;
  std::unique_ptr<AppModel> app;
  std::unique_ptr<FrontEnd> front;
  int abandon_questions = 0;  // the question answers itself Yes
};

// The controls whose widgets disagree with the model; empty when all agree.
inline QStringList Mismatches(QWidget* view, const WindowModel& model) {
  QStringList out;
  for (const NamedControl& nc : model.Controls()) {
    const Control& c = *nc.control;
    const QString name = QString::fromStdString(nc.name);
    QObject* o = nc.name == "Caption" ? view : view->findChild<QObject*>(name);
    auto* w = qobject_cast<QWidget*>(o);
    auto* action = qobject_cast<QAction*>(o);
    if (w == nullptr && action == nullptr) {
      out << name + QStringLiteral(": no widget");
      continue;
    }
    QStringList shown, wanted;
    auto both = [&](const QVariant& s, const QVariant& m) {
      shown << s.toString();
      wanted << m.toString();
    };
    const char* text = o == view ? "windowTitle" : qobject_cast<QGroupBox*>(o) ? "title" : "text";
    both(o->property(text), QString::fromStdString(c.caption));
    if (o != view) {
      both(w ? !w->isHidden() : action->isVisible(), c.visible);
      // The widget's own state: a disabled frame around it is not the model's doing.
      both(w ? !w->testAttribute(Qt::WA_ForceDisabled) : action->isEnabled(), c.enabled);
      if (w) both(w->toolTip(), QString::fromStdString(c.tooltip));
      const bool checkable = o->property("checkable").toBool();
      if (checkable) both(o->property("checked"), c.value != 0);
      if (auto* card = qobject_cast<CardLabel*>(o))
        both(card->marked(), c.marked != 0);
      else if (w && checkable)  // an option in force for the game shows in bold
        both(w->font().bold(), c.marked != 0);
    }
    if (shown != wanted)
      out << QStringLiteral("%1: shown %2, model %3")
                 .arg(name, shown.join(QLatin1Char('|')), wanted.join(QLatin1Char('|')));
  }
  return out;
}

}  // namespace bq::qt::test
