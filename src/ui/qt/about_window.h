#pragma once

#include <QWidget>

#include "ui/qt/model_window.h"

namespace bq::qt {

// frmAbout: the program's icon beside its name, version and description, the makers' web
// address as a link and their e-mail address, and OK. It opens over the game window.
class AboutWindow : public ModelWindow<QWidget> {
  Q_OBJECT
 public:
  AboutWindow(FrontEnd& front, const WindowModel& model, QWidget* parent);

 protected:
  void showEvent(QShowEvent* event) override;
};

}  // namespace bq::qt
