#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace bq {

// The state of one named control, whatever draws it: a button, label, check box, option button,
// menu item or status bar panel. `marked` is a card's selection border; `value` is a check box's
// or option button's state, or a menu item's check mark. `highlight` draws the eye to a card or
// pile: what the last move changed (kHighlightBrief, shown for a moment) or what stays worth
// seeing until the next event (kHighlightSteady: a winning Stack, advice). It is no selection and
// changes nothing a click does.
enum Highlight { kHighlightNone = 0, kHighlightBrief = 1, kHighlightSteady = 2 };

struct Control {
  std::string caption;
  std::string tooltip;
  bool visible = true;
  bool enabled = true;
  int marked = 0;
  int value = 0;
  int highlight = kHighlightNone;
};

// A control hidden is disabled too.
inline void Show(Control& c, bool visible, bool enabled) {
  c.visible = visible;
  c.enabled = visible && enabled;
}
inline void Hide(Control& c) {
  Show(c, false, false);
}

struct NamedControl {
  std::string name;  // "cmdNew", "lblCardA(3)"
  Control* control;
};

// A window of the game as plain state: its controls in a fixed order, and which one has the
// focus. Front ends read it after every event; only the window's own events change it.
class WindowModel {
 public:
  virtual ~WindowModel() = default;
  WindowModel() = default;
  WindowModel(const WindowModel&) = delete;
  WindowModel& operator=(const WindowModel&) = delete;

  const std::string& Name() const { return name_; }
  const std::vector<NamedControl>& Controls() const { return controls_; }
  Control* Find(std::string_view name) const;
  const std::string& Focus() const { return focus_; }
  void SetFocus(std::string name) { focus_ = std::move(name); }

 protected:
  explicit WindowModel(std::string name) : name_(std::move(name)) {}
  void Register(std::string name, Control& control) {
    controls_.push_back({std::move(name), &control});
  }
  // Registers an array as NAME(first)..NAME(last), slot i at arr[i].
  template <typename Array>
  void RegisterArray(const std::string& name, Array& arr, int first, int last) {
    for (int i = first; i <= last; ++i)
      Register(name + "(" + std::to_string(i) + ")", arr[static_cast<size_t>(i)]);
  }

 private:
  std::string name_;
  std::vector<NamedControl> controls_;
  std::string focus_;
};

inline Control* WindowModel::Find(std::string_view name) const {
  for (const auto& nc : controls_)
    if (nc.name == name) return nc.control;
  return nullptr;
}

}  // namespace bq
