#include <QElapsedTimer>
#include <QtTest>
#include <algorithm>
#include <numeric>
#include <vector>

#include "qt_fixture.h"

using namespace bq;
using namespace bq::qt;
using namespace bq::qt::test;

// The heaviest click of ordinary play: the one that completes the player's move, so the
// computer's whole turn runs inside it, then every control of the window is re-read and what
// changed is laid out and repainted. Timed move by move; the waits and new deals between moves
// are not.
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
  const GameModel& g = s.game();
  constexpr int kMoves = 400;
  std::vector<double> ms, endings;
  QElapsedTimer timer;
  for (int slot = 0; static_cast<int>(ms.size()) < kMoves; ++slot) {
    // Untimed: a turned-down card waits for its button; a finished game is acknowledged and a
    // new one dealt.
    if (g.cmdCTakesNothing.visible || !g.game_running() || g.cmdAWins.visible ||
        g.cmdBWins.visible || g.cmdCWins.visible || g.cmdBothWin.visible) {
      for (const char* name :
           {"cmdCTakesNothing", "cmdAWins", "cmdBWins", "cmdCWins", "cmdBothWin", "cmdNew"})
        s.front->Click(name);
      QCoreApplication::processEvents();
      continue;
    }
    timer.start();
    s.front->Click("lblDiscardPile");
    s.front->Click("lblCardA(" + std::to_string(slot % 10 + 1) + ")");  // completes the move
    // What the event loop does next: lay out and paint what the clicks changed.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    QCoreApplication::sendPostedEvents(w, QEvent::UpdateRequest);
    const double elapsed = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    // A move that ends the game also records its result: the statistics file is read, written
    // and flushed to the disk. That is the disk's time, counted apart.
    (g.cmdAWins.visible || g.cmdBWins.visible || g.cmdCWins.visible || g.cmdBothWin.visible
         ? endings
         : ms)
        .push_back(elapsed);
  }
  std::sort(ms.begin(), ms.end());
  const double mean = std::accumulate(ms.begin(), ms.end(), 0.0) / kMoves;
  qInfo("%d moves: mean %.3f ms, median %.3f ms, 90th percentile %.3f ms, slowest %.3f ms", kMoves,
        mean, ms[kMoves / 2], ms[kMoves * 9 / 10], ms.back());
  if (!endings.empty())
    qInfo("and %d moves that ended a game, with the statistics file written: mean %.3f ms",
          static_cast<int>(endings.size()),
          std::accumulate(endings.begin(), endings.end(), 0.0) / endings.size());
  QTest::setBenchmarkResult(mean * 1e6, QTest::WalltimeNanoseconds);
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
