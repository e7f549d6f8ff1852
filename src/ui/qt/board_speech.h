#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <map>
#include <vector>

#include "ui/model/control.h"

namespace bq {
class GameModel;
}

namespace bq::qt {

class BoardTable;
class CardLabel;
class ControlBinder;

// The game window for those who hear it or use only the keyboard. It names the opponent's cards
// and their backs, never with a value the screen does not show; it says every new prompt once,
// through the widget that takes the focus or else as a notification; it gives the focus to the
// board at the start of each of the player's turns; and it lets the arrow keys move between the
// cards and piles, which Tab reaches too.
class BoardSpeech : public QObject {
  Q_OBJECT
 public:
  BoardSpeech(QWidget* window, const GameModel& model, ControlBinder& binder, BoardTable& table);
  // After the window has drawn the model, before the model's focus is restored.
  void Refresh();
  // The focus target at the start of a turn: the card or pile the Hint names, else the Discard
  // Pile, else whatever on the board can be pressed.
  QWidget* BoardTarget() const;
  // What the complete-move button would do now: "Put 53 in place of your 23", "Pass 52".
  QString MoveText() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Settle();
  void Describe(QWidget* w, const QString& text);
  void FocusChanged(QWidget* old, QWidget* now);
  bool Usable(const QWidget* w) const;
  QWidget* Step(const CardLabel* from, int key) const;
  int TurnKey() const;

  QWidget* window_;
  const GameModel& model_;
  ControlBinder& binder_;
  BoardTable& table_;
  QString owner_;    // "Computer's", "Opponent's"
  QString said_;     // the prompt as last told
  QString pending_;  // a prompt not told yet
  bool settle_due_ = false;
  int turn_key_ = -1;  // changes with each of the player's turns
  bool turn_started_ = false;
  QPointer<QWidget> settled_focus_;
  std::map<QWidget*, QString> own_description_;   // put back when the focus leaves
  std::vector<std::vector<CardLabel*>> columns_;  // opponent's Stack, yours, the piles
};

}  // namespace bq::qt
