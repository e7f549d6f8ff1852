#include <QFontInfo>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QtTest>
#include <cmath>
#include <map>

#include "qt_fixture.h"
#include "store/settings.h"
#include "ui/qt/board_table.h"
#include "ui/qt/card_widget.h"
#include "ui/qt/generic_window.h"

using namespace bq;
using namespace bq::qt;
using namespace bq::qt::test;

namespace {

// Check boxes and option buttons take clicks on their indicator only, not on the rest of a
// stretched widget.
void Press(QWidget* w) {
  QTest::mouseClick(w, Qt::LeftButton, Qt::NoModifier, QPoint(6, w->height() / 2));
}

}  // namespace

class GameWindowTest : public QObject {
  Q_OBJECT
 private slots:
  void keyboardPlay() {
    Session s;
    GameWindow* w = s.window();
    // To the focused widget, which passes on what it does not take.
    auto key = [w](Qt::Key k) { QTest::keyClick(w->focusWidget() ? w->focusWidget() : w, k); };
    Press(s.find("optFastModeOn"));
    s.find("cmdNew")->setFocus();
    key(Qt::Key_Return);  // presses the focused button
    QCOMPARE(s.game().state().turn_owner, kSideA);
    // The turn starts on the board, and the arrows walk it: piles side by side, the Stack down.
    QTRY_COMPARE(w->focusWidget(), s.find("lblDiscardPile"));
    for (auto [k, there] : {std::pair{Qt::Key_Right, "lblDrawPile"},
                            {Qt::Key_Left, "lblDiscardPile"},
                            {Qt::Key_Left, "lblCardA(1)"},
                            {Qt::Key_Down, "lblCardA(2)"},
                            {Qt::Key_Left, "lblCardA(2)"},  // the computer's cards are not for now
                            {Qt::Key_Right, "lblDiscardPile"}}) {
      key(k);
      QCOMPARE(w->focusWidget(), s.find(there));
    }
    key(Qt::Key_H);  // the Hint's advice, on the prompt line
    QVERIFY(s.game().lblPrompt.caption.rfind("Hint: ", 0) == 0);
    QCOMPARE(Mismatches(w, s.game()), QStringList());  // and the window shows it
    const int discard = s.game().state().discard_top;
    key(Qt::Key_D);
    key(Qt::Key_3);  // fast mode: the second pick completes the move
    QCOMPARE(s.game().state().move_count_a, 1);
    QCOMPARE(s.game().state().stacks[kSideA][3], discard);

    const std::tuple<int, Qt::KeyboardModifiers, quint32, const char*> keys[] = {
        {Qt::Key_0, Qt::NoModifier, 0, "lblCardA(10)"},
        {Qt::Key_7, Qt::KeypadModifier, 0, "lblCardA(7)"},
        {Qt::Key_Exclam, Qt::ShiftModifier, 0, "lblCardA(11)"},
        {Qt::Key_ParenRight, Qt::ShiftModifier, 0, "lblCardA(20)"},
        {Qt::Key_section, Qt::ShiftModifier, 15, "lblCardA(16)"},  // symbols of another layout
        {Qt::Key_2, Qt::ControlModifier | Qt::ShiftModifier, 0, "lblCardB(12)"},
        {Qt::Key_P, Qt::NoModifier, 0, "lblDrawPile"},
        {Qt::Key_H, Qt::NoModifier, 0, "mnuHint"},
        {Qt::Key_1, Qt::AltModifier, 0, ""},  // left to the access keys
        {Qt::Key_D, Qt::ShiftModifier, 0, ""},
        {Qt::Key_section, Qt::NoModifier, 15, ""},
    };
    for (const auto& [key, modifiers, scan, target] : keys)
      QCOMPARE(QString::fromStdString(GameWindow::KeyTarget(key, modifiers, scan)), target);
  }

  void statisticsWindowAndConfirmation() {
    Session s("[StatsVsComputer]\nWins1=2\nLosses1=1\nTies1=1\nWins7=2\n");
    s.find<QAction>("mnuStats")->trigger();
    QWidget* stats = s.front->View("frmStats");
    QVERIFY(stats != nullptr && stats->isVisible());
    const QPoint off = stats->frameGeometry().center() - s.window()->frameGeometry().center();
    QVERIFY2(off.manhattanLength() <= 4, "the statistics open centred over the game");
    WindowModel& model = *s.app->Window("frmStats");
    QCOMPARE(Mismatches(stats, model), QStringList());
    GenericWindow plain(*s.front, model, nullptr);  // the form any other window gets
    QCOMPARE(Mismatches(&plain, model), QStringList());
    auto* wins = stats->findChild<QLabel*>("lblWins(1)");
    QCOMPARE(wins->text(), QStringLiteral("2"));
    QVERIFY2(wins->accessibleName().endsWith(QLatin1String(", Wins: 2")) &&
                 wins->accessibleName().size() > 10,
             qPrintable(wins->accessibleName()));  // a figure is read with its row and column

    QTest::mouseClick(stats->findChild<QWidget*>("cmdClearStats"), Qt::LeftButton);
    QWidget* confirm = s.front->View("frmConfirmClearStats");
    QVERIFY(confirm != nullptr && confirm->isVisible() && confirm->isModal());
    QCOMPARE(Mismatches(confirm, *s.app->Window("frmConfirmClearStats")), QStringList());
    QCOMPARE(confirm->focusWidget(), confirm->findChild<QWidget*>("cmdNo"));
    QTest::mouseClick(confirm->findChild<QWidget*>("cmdYes"), Qt::LeftButton);
    QVERIFY(!confirm->isVisible());
    QCOMPARE(wins->text(), QStringLiteral("0"));

    stats->close();  // by the frame
    QVERIFY(!s.app->IsOpen("frmStats"));
  }

  // Every option on, Learn Mode on: the computer shows each of its moves, and from the deal to the
  // result the widgets mirror the model, no widget moves and the window keeps its size.
  void nothingMovesDuringAGame() {
    Session s(
        "[Options]\nSetStackem=1\nSetBackem=1\nSetSwitchem=1\nSetSmackem=1\nSetTakem=1\n"
        "SetLearnMode=1\n");
    GameWindow* w = s.window();
    QVERIFY(QTest::qWaitForWindowExposed(w));
    for (const NamedControl& nc : s.game().Controls())
      if (QWidget* widget = s.find(nc.name))
        QVERIFY2(!widget->accessibleName().isEmpty(), nc.name.c_str());
    QCOMPARE(Mismatches(w, s.game()), QStringList());
    QTest::mouseClick(s.find("cmdNew"), Qt::LeftButton);
    const QSize size = w->size();
    // Where each named widget was when first seen.
    std::map<QString, QRect> places;
    int checks = 0;
    auto nothing_moved = [&]() {
      QCoreApplication::processEvents();
      for (QWidget* child : w->findChildren<QWidget*>()) {
        const QString name = child->objectName();
        // The move list's entries step down as moves come in.
        if (name.isEmpty() || name.startsWith(QLatin1String("qt_")) ||
            name.startsWith(QLatin1String("lblMoveList")) || !child->isVisible())
          continue;
        const QRect now(child->mapTo(w, QPoint()), child->size());
        const auto [place, first] = places.emplace(name, now);
        ++checks;
        if (place->second != now) return name;
      }
      return w->size() == size ? QString() : QStringLiteral("the window");
    };
    QCOMPARE(nothing_moved(), QString());
    auto click = [&](const char* name) {
      QTest::mouseClick(s.find(name), Qt::LeftButton);
      QCOMPARE(nothing_moved(), QString());
      QCOMPARE(Mismatches(w, s.game()), QStringList());
    };
    const char* computer[] = {"cmdCTakesDiscard", "cmdCTakesDraw", "cmdCTakesNothing", "cmdBackemC",
                              "cmdSwitchemC",     "cmdSmackemC",   "cmdTakemC"};
    bool result = false;
    for (int turn = 0; turn < 200 && !result; ++turn) {
      const GameModel& g = s.game();
      result = g.cmdAWins.visible || g.cmdCWins.visible || g.cmdBothWin.visible;
      if (result) break;
      if (g.cmdSwitchemA.visible) {
        click("lblCardA(1)");
        click("lblCardA(2)");
        click("cmdSwitchemA");
        continue;
      }
      const char* shown = nullptr;
      for (const char* name : computer)
        if (g.Find(name)->visible) shown = name;
      if (shown != nullptr) {
        click(shown);
        continue;
      }
      click("lblDrawPile");
      const int slot = std::clamp((g.state().DrawTop() * 20 + 99) / 100, 1, 20);
      click(("lblCardA(" + std::to_string(slot) + ")").c_str());
      click("cmdPlayA");
    }
    QVERIFY2(result, "no result after 200 turns");
    QVERIFY(s.game().state().move_count_a > 10 && checks > 1000);
    const GameModel& g = s.game();
    const char* done = g.cmdAWins.visible   ? "cmdAWins"
                       : g.cmdCWins.visible ? "cmdCWins"
                                            : "cmdBothWin";
    QTest::mouseClick(s.find(done), Qt::LeftButton);
    QCOMPARE(Mismatches(w, s.game()), QStringList());
  }

  // Keys of desktop habit reach the menu commands; a right click on a button takes no focus; a
  // window stored off every screen comes back onto one.
  void desktopHabits() {
    Session s("[WindowPosition]\nLeft=-2000000\nTop=3000000\n");
    GameWindow* w = s.window();
    QVERIFY(QTest::qWaitForWindowActive(w));
    QVERIFY(w->screen()->availableGeometry().intersects(w->frameGeometry()));
    QSignalSpy help(s.find<QAction>("mnuHelpHowToPlay"), &QAction::triggered);
    QTest::keyClick(w, Qt::Key_F1);
    QCOMPARE(help.count(), 1);
    QTest::keyClick(w, Qt::Key_F2);
    QVERIFY(s.game().game_running());
    s.find<QAction>("mnuFileQuitGame")->trigger();
    QTest::keyClick(w, Qt::Key_N, Qt::ControlModifier);
    QVERIFY(s.game().game_running());

    QWidget* quit = s.find("cmdQuit");
    QWidget* before = w->focusWidget();
    QTest::mouseClick(quit, Qt::RightButton);
    QCOMPARE(w->focusWidget(), before);
    QVERIFY(s.game().game_running());

    QCOMPARE(PromptButton::Lines(QStringLiteral(
                 "Computer will take the      Draw Pile card.    Click here to continue.")),
             QStringLiteral("Computer will take the\nDraw Pile card.\nClick here to continue."));

    QTest::keyClick(w, Qt::Key_Q, Qt::ControlModifier);
    QVERIFY(s.front->finished());
  }

  // With 20-card Stacks the whole board fits a 1366 x 768 screen at 100 % and a 1920 x 1080 one
  // at 200 % (960 x 540 logical pixels, less a title bar and a panel), and the cards grow with
  // the window.
  void theBoardFitsSmallScreensAndGrowsWithTheWindow() {
    Session s("[Options]\nSetStackem=1\n");
    GameWindow* w = s.window();
    w->MeasureSmallest();  // as just after the first frame
    const QSize smallest = w->minimumSizeHint();
    QVERIFY2(smallest.width() <= 960 && smallest.height() <= 540 - 62,
             qPrintable(QStringLiteral("%1x%2").arg(smallest.width()).arg(smallest.height())));
    auto px = [&](const char* name) { return QFontInfo(s.find(name)->font()).pixelSize(); };
    const int ui = QFontInfo(QApplication::font()).pixelSize();
    // No text on the board is larger than the cards' numerals, at any size; they grow together.
    auto in_proportion = [&] {
      QCoreApplication::processEvents();
      const double face = CardFontFor(s.find("lblCardA(1)")->size());
      for (const char* text :
           {"lblRangeA(1)", "lblGoodBad(20)", "lblStackB", "lblDraw", "lblMoveCountA",
            "cmdSetupTakemA", "chkStackem", "cmdQuit", "lblPrompt", "lblMoveList(1)"})
        QVERIFY2(px(text) <= face, qPrintable(QStringLiteral("%1: %2 px").arg(text).arg(px(text))));
      QVERIFY(px("lblMoveCountA") >= face * 0.85 && px("chkStackem") >= face * 0.6);
      QVERIFY(s.find("frmPlayOptions")->mapTo(w, QPoint()).x() >=
              w->table()->mapTo(w, QPoint(w->table()->width(), 0)).x());
      // Nothing cut off: a caption has the room it needs.
      for (const char* button : {"cmdSetupSmackemB", "cmdSetupTakemA"}) {
        auto* b = static_cast<QPushButton*>(s.find(button));
        QVERIFY2(b->fontMetrics().horizontalAdvance(b->text()) < b->width(), button);
      }
    };
    w->resize(smallest);
    in_proportion();
    const double small_font = w->table()->cardFontSize();
    const int small_card = s.find("lblCardA(1)")->height();
    const int small_text = px("chkStackem");
    QVERIFY(small_text < ui);  // the panel gives way to small cards
    w->resize(1800, 1100);
    in_proportion();
    QVERIFY(w->table()->cardFontSize() > 1.5 * small_font);
    QVERIFY(s.find("lblCardA(20)")->height() > 1.5 * small_card);
    QVERIFY(s.find("lblDiscardPile")->height() > s.find("lblCardA(1)")->height());
    QVERIFY(px("chkStackem") > ui && px("lblPrompt") == px("chkStackem"));
    w->resize(smallest);  // and back
    in_proportion();
    QCOMPARE(px("chkStackem"), small_text);
  }

  void windowPositionIsKeptInTwips() {
    Session s("[WindowPosition]\nLeft=1500\nTop=900\n");
    GameWindow* w = s.window();
    const double twips = 1440 / w->screen()->logicalDotsPerInchX();  // per pixel
    auto px = [&](int t) { return int(std::lround(t / twips)); };
    QCOMPARE(w->pos(), QPoint(px(1500), px(900)));
    QCOMPARE(w->BaseSize(), QSize(px(9105), px(5235)));
    // At least its design size and the room its contents want, as far as the screen allows.
    const QSize room = w->screen()->availableGeometry().size().expandedTo(w->minimumSizeHint());
    QVERIFY(w->width() >= std::min(w->BaseSize().width(), room.width()));
    QVERIFY(w->height() >= std::min(w->BaseSize().height(), room.height()));
    QVERIFY(w->width() <= room.width() && w->height() <= room.height());

    w->move(200, 120);
    s.find<QAction>("mnuFileExit")->trigger();
    QVERIFY(s.front->finished() && !w->isVisible());
    const Settings saved = LoadSettings(s.path);
    QCOMPARE(saved.left, std::floor(float(200 * twips)));
    QCOMPARE(saved.top, std::floor(float(120 * twips)));
  }

  // The prompts' heights are counted from word widths; Qt's own wrapping is the judge, for
  // every caption, in both modes, at the widths the area can be given.
  void promptHeightsAgreeWithQtsWrapping() {
    Session s;
    for (const bool fast : {false, true}) {
      if (fast) Press(s.find("optFastModeOn"));
      for (PromptButton* button : s.window()->findChildren<PromptButton*>()) {
        const QFontMetrics fm(button->font());
        for (int width = 120; width <= 900; width += 13) {
          const QRect text =
              fm.boundingRect(QRect(0, 0, width - 20, 10000), Qt::AlignCenter | Qt::TextWordWrap,
                              PromptButton::Lines(button->text()));
          QCOMPARE(button->heightForWidth(width),
                   std::max(text.height() + 12, fm.height() * 2 + 12));
        }
      }
    }
  }
};

QTEST_MAIN(GameWindowTest)
#include "game_window_test.moc"
