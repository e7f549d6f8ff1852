#pragma once

#include <QMainWindow>
#include <array>
#include <string>

#include "ui/model/game_model.h"
#include "ui/qt/control_binder.h"

class QAbstractButton;
class QGridLayout;
class QLabel;
class QMenu;
class QTimer;
class QVBoxLayout;

namespace bq::qt {

class BoardTable;
class BoardSpeech;
class CardLabel;
class FrontEnd;
class PromptArea;
class PromptLine;
class SidePanel;
class MoveList;

// frmGame: the table (both Stacks, the piles and the move counts) takes the room the window has;
// beside it the option panels, the game buttons and the prompt buttons take what they need;
// under both, the prompt line. Then the menus and the status bar. It draws GameModel and forwards
// input to the FrontEnd.
//
// Keyboard play: 1..9 and 0 pick slots 1..10 of your Stack, Shift with them slots 11..20; Ctrl
// (and Ctrl+Shift) the same slots of the opponent's Stack; D the Discard Pile, P the Draw Pile;
// Enter or Space presses the focused button; Alt with the underlined letter any option or
// button; Tab moves between controls. F1 How To Play, Ctrl+N or F2 a new game, Ctrl+Q exit.
class GameWindow : public QMainWindow {
  Q_OBJECT
 public:
  GameWindow(FrontEnd& front, GameModel& model);

  ControlBinder& binder() { return binder_; }
  void Refresh();
  // Puts the window where the settings file says and tracks its moves from then on.
  void PlaceAtStoredPosition();
  void ShowPopup(const std::string& popup, QPoint global_pos);
  QMenu* formPopup() const { return form_popup_; }
  QMenu* cardPopup() const { return card_popup_; }
  // The window's size with 10-card Stacks, 9105 x 5235 twips, in this screen's logical pixels.
  QSize BaseSize() const;
  BoardTable* table() const { return table_; }
  // The window's smallest size measured at its fonts, not estimated; done just after the first
  // frame, whose fonts it does not need.
  void MeasureSmallest();
  // The model event a key stands for ("lblCardA(3)"), or "" for none.
  static std::string KeyTarget(int key, Qt::KeyboardModifiers modifiers, quint32 scan_code);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* BuildTable();
  QWidget* BuildSidePanel();
  QWidget* BuildOptions();
  QWidget* BuildPrompts();
  void RefreshHighlights();
  void BuildMenus();
  void BuildStatusBar();
  void SetTabOrder();

  QLabel* NamedLabel(const std::string& name, QWidget* parent, Qt::Alignment align);
  CardLabel* NamedCard(const std::string& name, QWidget* parent);
  template <typename Button>
  Button* NamedButton(const std::string& name, QWidget* parent);
  QAction* NamedAction(const std::string& name, QMenu* menu, bool checkable);
  bool OnBackground(QWidget* hit) const;
  void FitToContents();
  void Rescale();
  void ScaleTexts(double scale);  // the side panel's and the prompt line's
  void KeepOnScreen();
  double Dpi() const;

  FrontEnd& front_;
  GameModel& model_;
  ControlBinder binder_;
  BoardTable* table_ = nullptr;
  PromptArea* prompts_ = nullptr;
  SidePanel* side_ = nullptr;
  MoveList* move_list_ = nullptr;
  PromptLine* prompt_line_ = nullptr;
  int prompt_line_height_ = 0;  // at the window's font
  BoardSpeech* speech_ = nullptr;
  QWidget* options_ = nullptr;
  QWidget* central_ = nullptr;
  // Brief highlights show for a moment after the event that set them.
  QTimer* highlight_timer_ = nullptr;
  int highlight_serial_ = -1;
  bool brief_shown_ = false;
  QMenu* form_popup_ = nullptr;
  QMenu* card_popup_ = nullptr;
  int fitted_stack_size_ = 0;
  std::array<QSize, kMaxStackSize + 1> size_for_{};  // the window's size by Stack size
  bool placed_ = false;
  bool smallest_measured_ = false;
};

}  // namespace bq::qt
