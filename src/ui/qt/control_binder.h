#pragma once

#include <QString>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/model/control.h"

class QObject;
class QWidget;

namespace bq::qt {

// Ties the named controls of one window model to the Qt objects that draw them, and copies each
// control's state onto its object after an event. Only what changed is touched, so a refresh of
// a few hundred controls costs next to nothing.
class ControlBinder {
 public:
  explicit ControlBinder(const WindowModel& model) : model_(model) {}

  // Names the object after the control. A window itself may be bound: its title follows the
  // caption. Returns false when the model has no such control.
  bool Bind(const std::string& name, QObject* target);
  // How a screen reader names the control, from its spoken caption: for controls whose caption
  // alone says too little ("12" beside a card) or is often empty. Without one, the caption.
  void SetSpokenName(std::string_view name, std::function<QString(const QString&)> say);
  void Apply();
  QObject* Target(std::string_view name) const;
  QWidget* Widget(std::string_view name) const;
  const WindowModel& model() const { return model_; }

  // The model moves the focus only by naming a control. It is honoured when the name changed,
  // when the control has just become usable, or when the focus sits nowhere useful; so the
  // player's own Tab moves between events are not undone.
  struct FocusMark {
    std::string name;
    bool usable = false;
  };
  FocusMark MarkFocus() const;
  void RestoreFocus(const FocusMark& before) const;

 private:
  struct Binding {
    std::string name;
    const Control* control;
    QObject* target;
    Control shown;
    bool fresh = true;
    std::function<QString(const QString&)> say;
  };
  bool Usable(std::string_view name) const;

  const WindowModel& model_;
  std::vector<Binding> bindings_;
};

// A caption as a screen reader should say it: without the access key's ampersand, trimmed.
QString SpokenText(const std::string& caption);

}  // namespace bq::qt
