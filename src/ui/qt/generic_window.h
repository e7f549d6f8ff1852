#pragma once

#include <QLabel>
#include <QWidget>
#include <string>

#include "ui/qt/control_binder.h"

namespace bq::qt {

class FrontEnd;

// A label that reports clicks, for windows whose labels act (a web address, say).
class ClickableLabel : public QLabel {
  Q_OBJECT
 public:
  using QLabel::QLabel;
 signals:
  void clicked();

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;
};

// Any other window of the program, drawn plainly from its model: its labels in a column and its
// buttons in a row below. A window without a form of its own is still usable this way.
class GenericWindow : public QWidget {
  Q_OBJECT
 public:
  GenericWindow(FrontEnd& front, const WindowModel& model, QWidget* parent);
  ControlBinder& binder() { return binder_; }
  void Refresh() { binder_.Apply(); }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  FrontEnd& front_;
  ControlBinder binder_;
  std::string name_;
};

}  // namespace bq::qt
