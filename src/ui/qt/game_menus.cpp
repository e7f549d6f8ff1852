// The menu bar and the two pop-up menus, each item bound to its control by name.
#include <QAction>
#include <QActionGroup>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

#include "ui/qt/front_end.h"
#include "ui/qt/game_window.h"

namespace bq::qt {

QAction* GameWindow::NamedAction(const std::string& name, QMenu* menu, bool checkable) {
  QAction* action = menu->addAction(QString());
  action->setCheckable(checkable);
  binder_.Bind(name, action);
  connect(action, &QAction::triggered, this, [this, name] { front_.Click(name); });
  return action;
}

void GameWindow::BuildMenus() {
  QMenu* file = menuBar()->addMenu(QString());
  binder_.Bind("mnuFile", file->menuAction());
  NamedAction("mnuFileNewGame", file, false)
      ->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_N), QKeySequence(Qt::Key_F2)});
  NamedAction("mnuFileQuitGame", file, false);
  NamedAction("mnuFileExit", file, false)->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));

  QMenu* options = menuBar()->addMenu(QString());
  binder_.Bind("mnuOptions", options->menuAction());
  for (const char* name : {"mnuOptionsStackem", "mnuOptionsBackem", "mnuOptionsSwitchem",
                           "mnuOptionsSmackem", "mnuOptionsTakem", "mnuOptionsRandom"})
    NamedAction(name, options, true);
  options->addSeparator();
  NamedAction("mnuVsComputer", options, true);
  NamedAction("mnuVsHuman", options, true);
  NamedAction("mnuSetupRemoteOpponent", options, false);
  options->addSeparator();
  NamedAction("mnuFastModeOn", options, true);
  NamedAction("mnuFastModeOff", options, true);
  options->addSeparator();
  NamedAction("mnuLearnModeOn", options, true);
  NamedAction("mnuLearnModeOff", options, true);
  options->addSeparator();
  NamedAction("mnuOptionsSound", options, true);
  options->addSeparator();
  // Ours: which computer plays, drawn as a radio pair; the model keeps the marks.
  auto* computers = new QActionGroup(options);
  for (const char* name : {"mnuComputerClassic", "mnuComputerExpert"})
    computers->addAction(NamedAction(name, options, true));

  // Statistics is a command on the bar itself, not a menu.
  QAction* stats = menuBar()->addAction(QString());
  binder_.Bind("mnuStats", stats);
  connect(stats, &QAction::triggered, this, [this] { front_.Click("mnuStats"); });
  // Ours: the Hint, a command on the bar too, also on the key H.
  QAction* hint = menuBar()->addAction(QString());
  binder_.Bind("mnuHint", hint);
  connect(hint, &QAction::triggered, this, [this] { front_.Click("mnuHint"); });

  // Ours: Edit, with Undo, just before Help.
  QMenu* edit = menuBar()->addMenu(QString());
  binder_.Bind("mnuEdit", edit->menuAction());
  NamedAction("mnuEditUndo", edit, false)->setShortcut(QKeySequence::Undo);

  QMenu* help = menuBar()->addMenu(QString());
  binder_.Bind("mnuHelp", help->menuAction());
  NamedAction("mnuHelpHowToPlay", help, false)->setShortcut(QKeySequence(Qt::Key_F1));
  NamedAction("mnuHelpAbout", help, false);

  form_popup_ = new QMenu(this);
  form_popup_->setObjectName(QStringLiteral("mnuPopupForm"));
  for (const char* name : {"mnuPopupFileNewGame", "mnuPopupFileQuitGame", "mnuPopupFileExit",
                           "mnuPopupStats", "mnuPopupHelpHowToPlay", "mnuPopupHelpAbout"})
    NamedAction(name, form_popup_, false);
  card_popup_ = new QMenu(this);
  card_popup_->setObjectName(QStringLiteral("mnuPopupCard"));
  NamedAction("mnuPopupCardDiscard", card_popup_, false);
  NamedAction("mnuPopupCardDraw", card_popup_, false);
}

void GameWindow::ShowPopup(const std::string& popup, QPoint global_pos) {
  if (popup == "mnuPopupForm") form_popup_->popup(global_pos);
  if (popup == "mnuPopupCard") card_popup_->popup(global_pos);
}

}  // namespace bq::qt
