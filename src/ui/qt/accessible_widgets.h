#pragma once

#include <QString>

class QWidget;

namespace bq::qt {

// Our widgets as assistive technology sees them. Buttons: every accessibility action is a click,
// so a check box toggled by a screen reader reaches the game as a mouse click would; option
// buttons say they are radio buttons, and a bare "On" or "Off" carries its frame's title. The
// prompt line is a notification with a text of its own; the back of a card is a static text.
// Installed once, before the first window is built.
void InstallAccessibleWidgets();

// Tells assistive technology that the prompt line has new words, as one notification.
void AnnouncePrompt(QWidget* prompt_line, const QString& before);

}  // namespace bq::qt
