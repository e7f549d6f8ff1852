#pragma once

#include <QDialog>
#include <QWidget>

#include "ui/qt/model_window.h"

namespace bq::qt {

// frmStats: one opponent kind's results as a grid, rows by play option, columns Wins, Losses and
// Ties as counts and as shares, and the current and record streaks below.
class StatsWindow : public ModelWindow<QWidget> {
  Q_OBJECT
 public:
  StatsWindow(FrontEnd& front, const WindowModel& model, QWidget* parent);
};

// frmConfirmClearStats: the question before statistics are cleared; modal to the program.
class ConfirmClearDialog : public ModelWindow<QDialog> {
  Q_OBJECT
 public:
  ConfirmClearDialog(FrontEnd& front, const WindowModel& model, QWidget* parent);

 protected:
  void reject() override;  // Escape: as closing by the frame
};

}  // namespace bq::qt
