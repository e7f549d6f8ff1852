#pragma once

#include <QCloseEvent>
#include <QKeyEvent>
#include <QWidget>

#include "ui/qt/control_binder.h"
#include "ui/qt/front_end.h"

namespace bq::qt {

// A top-level window drawn from one window model: its controls are bound by name, and closing it
// by the frame, or with Escape, is the model's event, which may refuse (while a question waits,
// say).
template <typename Base>
class ModelWindow : public Base {
 public:
  ModelWindow(FrontEnd& front, const WindowModel& model, QWidget* parent, Qt::WindowFlags flags)
      : Base(parent, flags), front_(front), binder_(model) {}
  ControlBinder& binder() { return binder_; }
  virtual void Refresh() { binder_.Apply(); }

 protected:
  const std::string& name() const { return binder_.model().Name(); }
  void closeEvent(QCloseEvent* event) override {
    if (front_.app().IsOpen(name())) front_.Close(name());
    if (front_.app().IsOpen(name()))
      event->ignore();
    else
      event->accept();
  }
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier) {
      Base::close();
      return;
    }
    Base::keyPressEvent(event);
  }

  FrontEnd& front_;
  ControlBinder binder_;
};

}  // namespace bq::qt
