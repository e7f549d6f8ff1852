#include <QContextMenuEvent>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QtTest>
#include <cmath>

#include "qt_fixture.h"
#include "store/settings.h"
#include "ui/qt/generic_window.h"

using namespace bq;
using namespace bq::qt;
using namespace bq::qt::test;

namespace {

std::string Slot(const char* name, int i) {
  return std::string(name) + "(" + std::to_string(i) + ")";
}

// A point of the window's background: inside the central widget, on no named control.
QPoint BackgroundPoint(QWidget* central) {
  for (int y = central->height() - 4; y > 0; y -= 3)
    for (int x = 2; x < central->width(); x += 3) {
      QWidget* hit = central->childAt(x, y);
      bool named = false;
      for (QWidget* w = hit; w != nullptr && w != central; w = w->parentWidget())
        named = named || !w->objectName().isEmpty();
      if (!named) return {x, y};
    }
  return {};
}

void RightClick(QWidget* target, QPoint pos) {
  QContextMenuEvent event(QContextMenuEvent::Mouse, pos, target->mapToGlobal(pos));
  QApplication::sendEvent(target, &event);
}

// Clicks where a person would: check boxes and option buttons take clicks on their indicator
// and caption only, not on the empty rest of a stretched widget.
void Press(QWidget* w) {
  QTest::mouseClick(w, Qt::LeftButton, Qt::NoModifier, QPoint(6, w->height() / 2));
}

void Key(Session& s, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  QWidget* focus = s.window()->focusWidget();
  QTest::keyClick(focus ? focus : s.window(), Qt::Key(key), modifiers);
}

const char* const kResults[] = {"cmdAWins", "cmdBWins", "cmdCWins", "cmdBothWin"};

}  // namespace

class GameWindowTest : public QObject {
  Q_OBJECT
 private slots:
  void everyNamedControlHasANamedWidget();
  void widgetsFollowTheModelThroughAGame();
  void checkBoxAndMenuItemStayInStep();
  void opponentMenuItemsToggle();
  void formPopupOffersWhatTheFileMenuOffers();
  void cardPopupMakesTheMove();
  void keyboardPlayCompletesAMove();
  void keyTargets_data();
  void keyTargets();
  void ctrlAltBackgroundClickTogglesJudgement();
  void statisticsWindowAndConfirmation();
  void windowPositionIsKeptInTwips();
  void otherWindowsAreDrawnPlainly();
};

void GameWindowTest::everyNamedControlHasANamedWidget() {
  Session s;
  for (const NamedControl& nc : s.game().Controls()) {
    QObject* object = s.find(nc.name);
    QVERIFY2(object != nullptr, nc.name.c_str());
    if (auto* w = qobject_cast<QWidget*>(object))
      QVERIFY2(!w->accessibleName().isEmpty(), nc.name.c_str());
  }
  QCOMPARE(s.window()->windowTitle(), QStringLiteral("Bramblequay"));
  // The menu bar in its fixed order, Statistics a command of its own.
  QStringList bar;
  for (QAction* a : s.window()->menuBar()->actions()) bar << a->objectName();
  QCOMPARE(bar, QStringList({"mnuFile", "mnuOptions", "mnuStats", "mnuHelp"}));
  QVERIFY(s.find<QAction>("mnuStats")->menu() == nullptr);
  QCOMPARE(s.find<QAction>("mnuFile")->menu()->actions().size(), 3);
  QCOMPARE(s.find<QAction>("mnuOptions")->menu()->actions().size(), 16);  // 13 items, 3 rules
}

void GameWindowTest::widgetsFollowTheModelThroughAGame() {
  Session s;
  GameWindow* w = s.window();
  QVERIFY(QTest::qWaitForWindowExposed(w));
  QCOMPARE(Mismatches(w, s.game()), QStringList());
  Press(s.find<QWidget>("optFastModeOn"));
  QTest::mouseClick(s.find<QWidget>("cmdNew"), Qt::LeftButton);
  QCOMPARE(Mismatches(w, s.game()), QStringList());
  QVERIFY(s.find<QWidget>("cmdNew")->isHidden());

  // Take the Draw Pile card and put it in the slot of its tens; the computer answers each move.
  bool decided = false;
  for (int turn = 0; turn < 300 && !decided; ++turn) {
    for (const char* result : kResults) decided = decided || s.game().Find(result)->visible;
    if (decided) break;
    // A turned-down card waits for its button in every mode.
    if (s.game().cmdCTakesNothing.visible) {
      QTest::mouseClick(s.find<QWidget>("cmdCTakesNothing"), Qt::LeftButton);
      continue;
    }
    QTest::mouseClick(s.find<QWidget>("lblDrawPile"), Qt::LeftButton);
    QVERIFY(s.find<CardLabel>("lblDrawPile")->marked());
    QCOMPARE(Mismatches(w, s.game()), QStringList());
    const int n = s.game().state().stack_size;
    const int card = s.game().state().DrawTop();
    const int slot = std::clamp((card * n + 99) / 100, 1, n);
    QTest::mouseClick(s.find<QWidget>(Slot("lblCardA", slot)), Qt::LeftButton);
    QCOMPARE(Mismatches(w, s.game()), QStringList());
  }
  QVERIFY2(decided, "no result after 300 turns");
  // The result button keeps its caption's runs of blanks.
  for (const char* result : kResults)
    if (s.game().Find(result)->visible) {
      auto* button = s.find<QPushButton>(result);
      QVERIFY(button->text().contains(QStringLiteral(".  Click")));
      QTest::mouseClick(button, Qt::LeftButton);
    }
  QCOMPARE(Mismatches(w, s.game()), QStringList());
  QVERIFY(!s.find<QWidget>("cmdNew")->isHidden());
}

void GameWindowTest::checkBoxAndMenuItemStayInStep() {
  Session s;
  GameWindow* w = s.window();
  auto* box = s.find<QAbstractButton>("chkStackem");
  auto* item = s.find<QAction>("mnuOptionsStackem");
  const int ten_high = w->height();
  QCOMPARE(w->size(), w->BaseSize().expandedTo(w->sizeHint()));

  Press(box);
  QVERIFY(box->isChecked() && item->isChecked());
  QCOMPARE(s.game().state().stack_size, 20);
  QVERIFY(!s.find<QWidget>("lblCardA(20)")->isHidden());
  QVERIFY2(w->height() > ten_high, "the window grows for 20 cards");

  item->trigger();
  QVERIFY(!box->isChecked() && !item->isChecked());
  QCOMPARE(s.game().state().stack_size, 10);
  QVERIFY(s.find<QWidget>("lblCardA(11)")->isHidden());
  QCOMPARE(w->height(), ten_high);

  // From the menu first, for an option without side effects on the layout.
  s.find<QAction>("mnuOptionsBackem")->trigger();
  QVERIFY(s.find<QAbstractButton>("chkBackem")->isChecked());
  Press(s.find<QWidget>("chkBackem"));
  QVERIFY(!s.find<QAction>("mnuOptionsBackem")->isChecked());
  QCOMPARE(Mismatches(w, s.game()), QStringList());
}

void GameWindowTest::opponentMenuItemsToggle() {
  Session s;
  auto* vs_computer = s.find<QAction>("mnuVsComputer");
  auto* vs_human = s.find<QAction>("mnuVsHuman");
  auto* setup = s.find<QAction>("mnuSetupRemoteOpponent");
  QVERIFY(vs_computer->isChecked() && !vs_human->isChecked() && !setup->isEnabled());

  // Either item of the pair toggles, even the one already checked.
  vs_computer->trigger();
  QVERIFY(!vs_computer->isChecked() && vs_human->isChecked() && setup->isEnabled());
  QVERIFY(s.find<QAbstractButton>("optVsHuman")->isChecked());
  QVERIFY(!s.find<QAbstractButton>("optVsComputer")->isChecked());
  QCOMPARE(s.find<QLabel>("lblStackB")->text(), QStringLiteral("Opponent's Stack"));

  vs_computer->trigger();
  QVERIFY(vs_computer->isChecked() && !vs_human->isChecked() && !setup->isEnabled());
  QCOMPARE(s.find<QLabel>("lblStackB")->text(), QStringLiteral("Computer's Stack"));

  // A click on the option button that is already selected leaves it selected.
  Press(s.find<QWidget>("optVsComputer"));
  QVERIFY(s.find<QAbstractButton>("optVsComputer")->isChecked());
  QCOMPARE(Mismatches(s.window(), s.game()), QStringList());
}

void GameWindowTest::formPopupOffersWhatTheFileMenuOffers() {
  Session s;
  GameWindow* w = s.window();
  QVERIFY(QTest::qWaitForWindowExposed(w));
  QWidget* central = w->centralWidget();
  const QPoint spot = BackgroundPoint(central);
  QVERIFY(!spot.isNull());
  auto same_as_file_menu = [&] {
    QCOMPARE(s.find<QAction>("mnuPopupFileNewGame")->isEnabled(),
             s.find<QAction>("mnuFileNewGame")->isEnabled());
    QCOMPARE(s.find<QAction>("mnuPopupFileQuitGame")->isEnabled(),
             s.find<QAction>("mnuFileQuitGame")->isEnabled());
  };

  RightClick(central, spot);
  QTRY_VERIFY(w->formPopup()->isVisible());
  same_as_file_menu();
  QVERIFY(s.find<QAction>("mnuPopupFileNewGame")->isEnabled());
  w->formPopup()->hide();

  QTest::mouseClick(s.find<QWidget>("cmdNew"), Qt::LeftButton);
  RightClick(central, spot);
  QTRY_VERIFY(w->formPopup()->isVisible());
  same_as_file_menu();
  QVERIFY(!s.find<QAction>("mnuPopupFileNewGame")->isEnabled());
  s.find<QAction>("mnuPopupFileQuitGame")->trigger();
  QVERIFY(!s.game().game_running());
  w->formPopup()->hide();

  // A right click on a control is not one on the background.
  QWidget* heading = s.find<QWidget>("lblStackA");
  RightClick(central, heading->mapTo(central, QPoint(3, 3)));
  QVERIFY(!w->formPopup()->isVisible());
}

void GameWindowTest::cardPopupMakesTheMove() {
  Session s;
  QVERIFY(QTest::qWaitForWindowExposed(s.window()));
  QTest::mouseClick(s.find<QWidget>("cmdNew"), Qt::LeftButton);
  QCOMPARE(s.game().state().turn_owner, kSideA);
  auto* card = s.find<CardLabel>("lblCardA(4)");
  RightClick(card, QPoint(5, 5));
  QTRY_VERIFY(s.window()->cardPopup()->isVisible());
  QVERIFY(s.find<QAction>("mnuPopupCardDiscard")->isEnabled());
  const int discard = s.game().state().discard_top;
  s.find<QAction>("mnuPopupCardDiscard")->trigger();
  s.window()->cardPopup()->hide();
  QCOMPARE(s.game().state().move_count_a, 1);
  QCOMPARE(s.game().state().stacks[kSideA][4], discard);
  QCOMPARE(Mismatches(s.window(), s.game()), QStringList());
}

void GameWindowTest::keyboardPlayCompletesAMove() {
  Session s;
  Press(s.find<QWidget>("optFastModeOn"));
  s.find<QWidget>("cmdNew")->setFocus();
  Key(s, Qt::Key_Return);  // the focused button
  QVERIFY(s.game().game_running());
  QCOMPARE(s.game().state().turn_owner, kSideA);
  const int discard = s.game().state().discard_top;
  Key(s, Qt::Key_D);
  QCOMPARE(s.find<CardLabel>("lblDiscardPile")->marked(), true);
  Key(s, Qt::Key_3);  // fast mode: the second pick completes the move
  QCOMPARE(s.game().state().move_count_a, 1);
  QCOMPARE(s.find<QLabel>("lblMoveCountA")->text(), QStringLiteral("1"));
  QCOMPARE(s.game().state().stacks[kSideA][3], discard);
  // Slot keys beyond the Stack are ignored without harm.
  Key(s, Qt::Key_5, Qt::ShiftModifier);
  QCOMPARE(s.game().state().move_count_a, 1);
}

void GameWindowTest::keyTargets_data() {
  QTest::addColumn<int>("key");
  QTest::addColumn<int>("modifiers");
  QTest::addColumn<quint32>("scan");
  QTest::addColumn<QString>("target");
  QTest::newRow("1") << int(Qt::Key_1) << 0 << 0u << "lblCardA(1)";
  QTest::newRow("0 is ten") << int(Qt::Key_0) << 0 << 0u << "lblCardA(10)";
  QTest::newRow("keypad 7") << int(Qt::Key_7) << int(Qt::KeypadModifier) << 0u << "lblCardA(7)";
  QTest::newRow("shift 1") << int(Qt::Key_1) << int(Qt::ShiftModifier) << 0u << "lblCardA(11)";
  QTest::newRow("shift ! (US)") << int(Qt::Key_Exclam) << int(Qt::ShiftModifier) << 0u
                                << "lblCardA(11)";
  QTest::newRow("shift ) (US)") << int(Qt::Key_ParenRight) << int(Qt::ShiftModifier) << 0u
                                << "lblCardA(20)";
  QTest::newRow("shift, other layout")
      << int(Qt::Key_section) << int(Qt::ShiftModifier) << 15u << "lblCardA(16)";
  QTest::newRow("ctrl 2") << int(Qt::Key_2) << int(Qt::ControlModifier) << 0u << "lblCardB(2)";
  QTest::newRow("ctrl shift 2") << int(Qt::Key_2) << int(Qt::ControlModifier | Qt::ShiftModifier)
                                << 0u << "lblCardB(12)";
  QTest::newRow("D") << int(Qt::Key_D) << 0 << 0u << "lblDiscardPile";
  QTest::newRow("P") << int(Qt::Key_P) << 0 << 0u << "lblDrawPile";
  QTest::newRow("alt 1 is an access key") << int(Qt::Key_1) << int(Qt::AltModifier) << 0u << "";
  QTest::newRow("shift D") << int(Qt::Key_D) << int(Qt::ShiftModifier) << 0u << "";
  QTest::newRow("other letter") << int(Qt::Key_X) << 0 << 0u << "";
  QTest::newRow("unshifted scan code") << int(Qt::Key_section) << 0 << 15u << "";
}

void GameWindowTest::keyTargets() {
  QFETCH(int, key);
  QFETCH(int, modifiers);
  QFETCH(quint32, scan);
  QFETCH(QString, target);
  QCOMPARE(
      QString::fromStdString(GameWindow::KeyTarget(key, Qt::KeyboardModifiers(modifiers), scan)),
      target);
}

void GameWindowTest::ctrlAltBackgroundClickTogglesJudgement() {
  Session s;
  GameWindow* w = s.window();
  QVERIFY(QTest::qWaitForWindowExposed(w));
  Press(s.find<QWidget>("optFastModeOn"));
  QWidget* central = w->centralWidget();
  const QPoint spot = BackgroundPoint(central);
  const auto ctrl_alt = Qt::ControlModifier | Qt::AltModifier;

  QTest::mouseClick(central, Qt::LeftButton, Qt::NoModifier, spot);
  QTest::mouseClick(central, Qt::LeftButton, ctrl_alt,
                    s.find<QWidget>("lblStackA")->mapTo(central, QPoint(3, 3)));
  QVERIFY(!s.game().judgement_shown());

  QTest::mouseClick(central, Qt::LeftButton, ctrl_alt, spot);
  QVERIFY(s.game().judgement_shown());
  QVERIFY(s.find<QAbstractButton>("optLearnModeOn")->isChecked());
  QVERIFY(s.find<QAbstractButton>("optFastModeOff")->isChecked());
  QVERIFY(!s.find<QWidget>("lblRangeA(1)")->isHidden());
  QCOMPARE(s.find<QLabel>("lblRangeA(1)")->text(), QStringLiteral(" 10"));
  QVERIFY(!s.find<QWidget>("lblGoodBad(1)")->isHidden());
  QCOMPARE(Mismatches(w, s.game()), QStringList());

  QTest::mouseClick(central, Qt::LeftButton, ctrl_alt, spot);
  QVERIFY(!s.game().judgement_shown());
  QVERIFY(s.find<QAbstractButton>("optFastModeOn")->isChecked());
  QVERIFY(s.find<QAbstractButton>("optLearnModeOff")->isChecked());
  QVERIFY(s.find<QWidget>("lblRangeA(1)")->isHidden());
  QCOMPARE(Mismatches(w, s.game()), QStringList());
}

void GameWindowTest::statisticsWindowAndConfirmation() {
  Session s(QStringLiteral("[StatsVsComputer]\nWins1=2\nLosses1=1\nTies1=1\nWins7=2\n"));
  s.find<QAction>("mnuStats")->trigger();
  QWidget* stats = s.front->View("frmStats");
  QVERIFY(stats != nullptr && stats->isVisible());
  QCOMPARE(stats->windowTitle(), QStringLiteral("Your statistics vs computer"));
  QCOMPARE(Mismatches(stats, *s.app->Window("frmStats")), QStringList());
  QCOMPARE(stats->findChild<QLabel*>("lblWinsPct(1)")->text(), QStringLiteral("50.00%"));

  QTest::mouseClick(stats->findChild<QWidget*>("cmdClearStats"), Qt::LeftButton);
  QWidget* confirm = s.front->View("frmConfirmClearStats");
  QVERIFY(confirm != nullptr && confirm->isVisible() && confirm->isModal());
  QCOMPARE(Mismatches(confirm, *s.app->Window("frmConfirmClearStats")), QStringList());
  QCOMPARE(confirm->focusWidget(), confirm->findChild<QWidget*>("cmdNo"));
  QTest::mouseClick(confirm->findChild<QWidget*>("cmdNo"), Qt::LeftButton);
  QVERIFY(!confirm->isVisible());
  QCOMPARE(stats->findChild<QLabel*>("lblWins(1)")->text(), QStringLiteral("2"));

  QTest::mouseClick(stats->findChild<QWidget*>("cmdClearStats"), Qt::LeftButton);
  QTest::mouseClick(confirm->findChild<QWidget*>("cmdYes"), Qt::LeftButton);
  QCOMPARE(stats->findChild<QLabel*>("lblWins(1)")->text(), QStringLiteral("0"));
  QCOMPARE(Mismatches(stats, *s.app->Window("frmStats")), QStringList());

  stats->close();  // by the frame
  QVERIFY(!s.app->IsOpen("frmStats"));
  QVERIFY(!stats->isVisible());
}

void GameWindowTest::windowPositionIsKeptInTwips() {
  Session s(QStringLiteral("[WindowPosition]\nLeft=1500\nTop=900\n"));
  GameWindow* w = s.window();
  const double dpi = w->screen()->logicalDotsPerInchX();
  QCOMPARE(w->pos(),
           QPoint(int(std::lround(1500 * dpi / 1440)), int(std::lround(900 * dpi / 1440))));
  QCOMPARE(w->BaseSize(),
           QSize(int(std::lround(9105 * dpi / 1440)), int(std::lround(5235 * dpi / 1440))));

  w->move(200, 120);
  QTRY_COMPARE(s.game().window_left(), float(200 * 1440 / dpi));
  s.find<QAction>("mnuFileExit")->trigger();
  QVERIFY(s.front->finished());
  QVERIFY(!w->isVisible());
  const Settings saved = LoadSettings(s.path);
  QCOMPARE(saved.left, std::floor(float(200 * 1440 / dpi)));
  QCOMPARE(saved.top, std::floor(float(120 * 1440 / dpi)));
}

namespace {

class NoticeModel : public WindowModel {
 public:
  NoticeModel() : WindowModel("frmNotice") {
    caption.caption = "A notice";
    text.caption = "Something  happened.";
    ok.caption = "&OK";
    ok.tooltip = "Close the notice";
    Register("Caption", caption);
    Register("lblText", text);
    Register("cmdOK", ok);
  }
  Control caption, text, ok;
};

}  // namespace

void GameWindowTest::otherWindowsAreDrawnPlainly() {
  Session s;
  NoticeModel model;
  GenericWindow view(*s.front, model, nullptr);
  QCOMPARE(Mismatches(&view, model), QStringList());
  QCOMPARE(view.windowTitle(), QStringLiteral("A notice"));
  model.text.caption = "Something else.";
  model.ok.enabled = false;
  view.Refresh();
  QCOMPARE(Mismatches(&view, model), QStringList());
}

QTEST_MAIN(GameWindowTest)
#include "game_window_test.moc"
