#include <QtTest>

#include "qt_fixture.h"

using namespace bq;
using namespace bq::qt;
using namespace bq::qt::test;

// The heaviest click of ordinary play: the one that completes the player's move, so the
// computer's whole turn runs inside it, then every control of the window is re-read and the
// window repainted.
class ClickBench : public QObject {
  Q_OBJECT
 private slots:
  void moveWithComputerReply();
  // The window's loading: settings read, every widget built, filled from the model and shown.
  void startUp();
  // The yardstick for startUp: an empty Qt Widgets window, made and shown the same way.
  void emptyWindowStartUp();
};

void ClickBench::moveWithComputerReply() {
  Session s("[Options]\nSetFastMode=1\n");
  GameWindow* w = s.window();
  QVERIFY(QTest::qWaitForWindowExposed(w));
  s.front->Click("cmdNew");
  int slot = 0;
  QBENCHMARK {
    // A turned-down card waits for its button; a finished game is acknowledged and a new one
    // dealt. Both are rare next to the measured click.
    if (!s.game().Find("lblDiscardPile")->enabled) {
      for (const char* result :
           {"cmdCTakesNothing", "cmdAWins", "cmdBWins", "cmdCWins", "cmdBothWin"})
        s.front->Click(result);
      s.front->Click("cmdNew");
    }
    s.front->Click("lblDiscardPile");
    s.front->Click("lblCardA(" + std::to_string(slot % 10 + 1) + ")");  // completes the move
    w->repaint();
    ++slot;
  }
  QVERIFY(s.game().state().move_count_a > 0 || !s.game().game_running());
}

void ClickBench::startUp() {
  QBENCHMARK {
    Session s;
    QVERIFY(s.window()->isVisible());
  }
}

void ClickBench::emptyWindowStartUp() {
  QBENCHMARK {
    QWidget w;
    w.resize(707, 414);
    w.show();
    QCoreApplication::processEvents();
    QVERIFY(w.isVisible());
  }
}

QTEST_MAIN(ClickBench)
#include "qt_click_bench.moc"
