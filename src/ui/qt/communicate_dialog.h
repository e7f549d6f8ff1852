#pragma once

#include "ui/qt/model_window.h"

namespace bq::qt {

// frmCommunicate: a grid of the two addresses and two ports, your row above the opponent's, with
// Send, Cancel and Help below. What is typed goes to the model as it is typed.
class CommunicateDialog : public ModelWindow<QWidget> {
  Q_OBJECT
 public:
  CommunicateDialog(FrontEnd& front, const WindowModel& model, QWidget* parent);
};

}  // namespace bq::qt
