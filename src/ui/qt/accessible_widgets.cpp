#include "ui/qt/accessible_widgets.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QCheckBox>
#include <QGroupBox>
#include <QKeySequence>
#include <QRadioButton>
#include <QWidget>

#include "ui/qt/board_table.h"
#include "ui/qt/card_widget.h"
#include "ui/qt/control_binder.h"
#include "ui/qt/stats_window.h"

namespace bq::qt {
namespace {

class ButtonAccessible : public QAccessibleWidget {
 public:
  explicit ButtonAccessible(QAbstractButton* b) : QAccessibleWidget(b, RoleOf(b)) {}

  static QAccessible::Role RoleOf(QAbstractButton* b) {
    if (qobject_cast<QRadioButton*>(b) != nullptr) return QAccessible::RadioButton;
    if (qobject_cast<QCheckBox*>(b) != nullptr) return QAccessible::CheckBox;
    return QAccessible::Button;
  }

  QAbstractButton* button() const { return static_cast<QAbstractButton*>(widget()); }
  // A set-up under way (Smackem or Takem picked, cards not yet chosen) shows as pressed.
  bool InProgress() const { return button()->property("inProgress").toBool(); }

  QString text(QAccessible::Text t) const override {
    if (t == QAccessible::Name) {
      QString name = widget()->accessibleName();
      if (name.isEmpty()) name = SpokenText(button()->text().toStdString());
      auto* frame = qobject_cast<QGroupBox*>(widget()->parentWidget());
      if (frame != nullptr && (name == QLatin1String("On") || name == QLatin1String("Off")))
        name = SpokenText(frame->title().toStdString()) + QLatin1Char(' ') + name;
      return name;
    }
    if (t == QAccessible::Accelerator) {
      return QKeySequence::mnemonic(button()->text()).toString(QKeySequence::NativeText);
    }
    return QAccessibleWidget::text(t);
  }

  QAccessible::State state() const override {
    QAccessible::State s = QAccessibleWidget::state();
    if (button()->isCheckable() || InProgress()) {
      s.checkable = true;
      s.checked = button()->isChecked() || InProgress();
    }
    if (button()->isDown() || InProgress()) s.pressed = true;
    return s;
  }

  QStringList actionNames() const override {
    if (!widget()->isEnabled()) return {};
    return {button()->isCheckable() ? toggleAction() : pressAction()};
  }

  void doAction(const QString& action) override {
    if (!widget()->isEnabled() || !widget()->isVisible()) return;
    // The same click a mouse makes, so the game hears of it the same way.
    if (action == toggleAction() || action == pressAction()) button()->click();
  }

  QStringList keyBindingsForAction(const QString& action) const override {
    const QString key = text(QAccessible::Accelerator);
    return key.isEmpty() || !actionNames().contains(action) ? QStringList() : QStringList{key};
  }
};

class PromptAccessible : public QAccessibleWidget, public QAccessibleTextInterface {
 public:
  explicit PromptAccessible(QWidget* w) : QAccessibleWidget(w, QAccessible::Notification) {}

  QString Line() const { return widget()->property("text").toString().simplified(); }

  QString text(QAccessible::Text t) const override {
    if (t == QAccessible::Name) return Line();
    return QAccessibleWidget::text(t);
  }
  void* interface_cast(QAccessible::InterfaceType t) override {
    if (t == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    return QAccessibleWidget::interface_cast(t);
  }

  // Read only, no caret, no selection.
  void selection(int, int* start, int* end) const override { *start = *end = 0; }
  int selectionCount() const override { return 0; }
  void addSelection(int, int) override {}
  void removeSelection(int) override {}
  void setSelection(int, int, int) override {}
  int cursorPosition() const override { return 0; }
  void setCursorPosition(int) override {}
  QString text(int start, int end) const override { return Line().mid(start, end - start); }
  int characterCount() const override { return static_cast<int>(Line().size()); }
  QRect characterRect(int) const override { return {}; }
  int offsetAtPoint(const QPoint&) const override { return -1; }
  void scrollToSubstring(int, int) override {}
  QString attributes(int offset, int* start, int* end) const override {
    *start = *end = offset;
    return {};
  }
};

QAccessibleInterface* Factory(const QString&, QObject* object) {
  auto* widget = qobject_cast<QWidget*>(object);
  if (widget == nullptr) return nullptr;
  if (qobject_cast<PromptLine*>(widget) != nullptr) return new PromptAccessible(widget);
  if (qobject_cast<CardBack*>(widget) != nullptr)
    return new QAccessibleWidget(widget, QAccessible::StaticText);
  if (qobject_cast<PromptArea*>(widget) != nullptr)  // a frame, not a window
    return new QAccessibleWidget(widget, QAccessible::Grouping);
  if (qobject_cast<StatsWindow*>(widget) != nullptr)
    return new QAccessibleWidget(widget, QAccessible::Dialog);
  // Ours only: buttons bound to a control of a window model.
  if (auto* button = qobject_cast<QAbstractButton*>(widget);
      button != nullptr && !button->objectName().isEmpty() &&
      !button->objectName().startsWith(QLatin1String("qt_")))
    return new ButtonAccessible(button);
  return nullptr;
}

}  // namespace

void InstallAccessibleWidgets() {
  static const bool installed = [] {
    QAccessible::installFactory(Factory);
    return true;
  }();
  (void)installed;
}

void AnnouncePrompt(QWidget* prompt_line, const QString& before) {
  if (!QAccessible::isActive()) return;
  const QString now = prompt_line->property("text").toString().simplified();
  QAccessibleTextUpdateEvent text(prompt_line, 0, before.simplified(), now);
  QAccessible::updateAccessibility(&text);
  // Screen readers speak a notification when it shows: the prompt shows anew.
  QAccessibleEvent show(prompt_line, QAccessible::ObjectShow);
  QAccessible::updateAccessibility(&show);
}

}  // namespace bq::qt
