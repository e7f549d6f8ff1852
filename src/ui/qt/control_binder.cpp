#include "ui/qt/control_binder.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QVariant>
#include <QWidget>

#include "ui/qt/card_widget.h"

namespace bq::qt {
namespace {

void ApplyText(QObject* target, const QString& text) {
  if (auto* card = qobject_cast<CardLabel*>(target)) {
    card->setFace(text);
  } else if (auto* button = qobject_cast<QAbstractButton*>(target)) {
    button->setText(text);
  } else if (auto* edit = qobject_cast<QLineEdit*>(target)) {
    if (edit->text() != text) edit->setText(text);  // the same text keeps the cursor where it is
  } else if (auto* label = qobject_cast<QLabel*>(target)) {
    label->setText(text);
  } else if (auto* box = qobject_cast<QGroupBox*>(target)) {
    box->setTitle(text);
  } else if (auto* action = qobject_cast<QAction*>(target)) {
    action->setText(text);
  } else {
    target->setProperty("text", text);
  }
}

void ApplyValue(QObject* target, int value) {
  if (auto* button = qobject_cast<QAbstractButton*>(target)) {
    if (button->isCheckable() && button->isChecked() != (value != 0))
      button->setChecked(value != 0);
  } else if (auto* action = qobject_cast<QAction*>(target)) {
    if (action->isCheckable() && action->isChecked() != (value != 0))
      action->setChecked(value != 0);
  }
}

}  // namespace

QString SpokenText(const std::string& caption) {
  QString text = QString::fromStdString(caption);
  text.replace(QStringLiteral("&&"), QStringLiteral("\x01"));
  text.remove(QLatin1Char('&'));
  text.replace(QStringLiteral("\x01"), QStringLiteral("&"));
  return text.simplified();
}

bool ControlBinder::Bind(const std::string& name, QObject* target) {
  const Control* control = model_.Find(name);
  if (control == nullptr) return false;
  target->setObjectName(QString::fromStdString(name));
  bindings_.push_back({name, control, target, *control, true, {}});
  return true;
}

void ControlBinder::Apply() {
  for (Binding& b : bindings_) {
    const Control& c = *b.control;
    Control& s = b.shown;
    auto* widget = qobject_cast<QWidget*>(b.target);
    if (widget != nullptr && widget->isWindow()) {
      if (b.fresh || c.caption != s.caption)
        widget->setWindowTitle(QString::fromStdString(c.caption));
      s = c;
      b.fresh = false;
      continue;
    }
    if (b.fresh || c.caption != s.caption) {
      ApplyText(b.target, QString::fromStdString(c.caption));
      const QString spoken = b.say ? b.say(SpokenText(c.caption)) : SpokenText(c.caption);
      if (widget != nullptr && qobject_cast<CardLabel*>(widget) == nullptr &&
          widget->accessibleName() != spoken)
        widget->setAccessibleName(spoken);
    }
    if (b.fresh || c.tooltip != s.tooltip) {
      const QString tip = QString::fromStdString(c.tooltip);
      if (widget != nullptr) {
        widget->setToolTip(tip);
        widget->setAccessibleDescription(tip);
      } else if (auto* action = qobject_cast<QAction*>(b.target)) {
        action->setToolTip(tip);
      }
    }
    // Compared with the widget itself: a click toggles a check box or menu check before the
    // model has had its say, and the model may leave the value as it was.
    ApplyValue(b.target, c.value);
    if (b.fresh || c.marked != s.marked) {
      if (auto* card = qobject_cast<CardLabel*>(b.target)) {
        card->setMarked(c.marked != 0);
      } else if (auto* box = qobject_cast<QAbstractButton*>(b.target);
                 box != nullptr && box->isCheckable() && (c.marked != 0) != box->font().bold()) {
        // An option in force for the running game stands out in bold.
        QFont font;  // the weight only: the size follows the panel's
        font.setBold(c.marked != 0);
        box->setFont(font);
      }
    }
    if (b.fresh || c.enabled != s.enabled) {
      if (widget != nullptr) widget->setEnabled(c.enabled);
      if (auto* action = qobject_cast<QAction*>(b.target)) action->setEnabled(c.enabled);
    }
    if (b.fresh || c.visible != s.visible) {
      if (widget != nullptr) widget->setVisible(c.visible);
      if (auto* action = qobject_cast<QAction*>(b.target)) action->setVisible(c.visible);
    }
    s = c;
    b.fresh = false;
  }
}

void ControlBinder::SetSpokenName(std::string_view name,
                                  std::function<QString(const QString&)> say) {
  for (Binding& b : bindings_)
    if (b.name == name) {
      b.say = say;
      b.fresh = true;
    }
}

QObject* ControlBinder::Target(std::string_view name) const {
  for (const Binding& b : bindings_)
    if (b.name == name) return b.target;
  return nullptr;
}

QWidget* ControlBinder::Widget(std::string_view name) const {
  return qobject_cast<QWidget*>(Target(name));
}

bool ControlBinder::Usable(std::string_view name) const {
  const Control* c = name.empty() ? nullptr : model_.Find(name);
  return c != nullptr && c->visible && c->enabled;
}

ControlBinder::FocusMark ControlBinder::MarkFocus() const {
  return {model_.Focus(), Usable(model_.Focus())};
}

void ControlBinder::RestoreFocus(const FocusMark& before) const {
  const std::string& name = model_.Focus();
  QWidget* target = Widget(name);
  if (target == nullptr || !Usable(name) || target->focusPolicy() == Qt::NoFocus) return;
  QWidget* current = target->window()->focusWidget();
  const bool current_useless =
      current == nullptr || !current->isEnabled() || !current->isVisibleTo(target->window());
  if (name != before.name || !before.usable || current_useless)
    target->setFocus(Qt::OtherFocusReason);
}

}  // namespace bq::qt
