#pragma once

#include <QLabel>
#include <QWidget>
#include <string>

#include "ui/qt/model_window.h"

namespace bq::qt {

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
class GenericWindow : public ModelWindow<QWidget> {
  Q_OBJECT
 public:
  GenericWindow(FrontEnd& front, const WindowModel& model, QWidget* parent);
};

}  // namespace bq::qt
