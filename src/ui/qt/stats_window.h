#pragma once

#include <QDialog>
#include <QWidget>

#include "ui/qt/control_binder.h"

namespace bq::qt {

class FrontEnd;

// frmStats: one opponent kind's results as a grid, rows by play option, columns Wins, Losses and
// Ties as counts and as shares, and the current and record streaks below.
class StatsWindow : public QWidget {
  Q_OBJECT
 public:
  StatsWindow(FrontEnd& front, const WindowModel& model, QWidget* parent);
  ControlBinder& binder() { return binder_; }
  void Refresh() { binder_.Apply(); }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  FrontEnd& front_;
  ControlBinder binder_;
};

// frmConfirmClearStats: the question before statistics are cleared; modal to the program.
class ConfirmClearDialog : public QDialog {
  Q_OBJECT
 public:
  ConfirmClearDialog(FrontEnd& front, const WindowModel& model, QWidget* parent);
  ControlBinder& binder() { return binder_; }
  void Refresh() { binder_.Apply(); }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void reject() override;  // Escape: as closing by the frame

 private:
  FrontEnd& front_;
  ControlBinder binder_;
};

}  // namespace bq::qt
