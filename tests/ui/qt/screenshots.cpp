#include <QDir>
#include <QImage>
#include <QPixmap>
#include <QSet>
#include <QtTest>

#include "qt_fixture.h"

using namespace bq;
using namespace bq::qt;
using namespace bq::qt::test;

namespace {

const char* const kComputerPrompts[] = {"cmdCTakesDiscard", "cmdCTakesDraw", "cmdCTakesNothing",
                                        "cmdBackemC",       "cmdSwitchemC",  "cmdSmackemC",
                                        "cmdTakemC",        "cmdClickHere"};

std::string Slot(const char* name, int i) {
  return std::string(name) + "(" + std::to_string(i) + ")";
}

const char* ShownPrompt(Session& s) {
  for (const char* name : kComputerPrompts)
    if (const Control* c = s.game().Find(name); c && c->visible && c->enabled) return name;
  return nullptr;
}

// Saves the widget as the named PNG and checks that something was drawn: a blank or one-colour
// picture means the offscreen platform had no fonts or nothing was laid out.
void Save(QWidget* widget, const QString& name) {
  QCoreApplication::processEvents();  // pending layout requests, as the event loop would
  const QImage image = widget->grab().toImage();
  QVERIFY(!image.isNull());
  QSet<QRgb> colours;
  for (int y = 0; y < image.height(); y += 2)
    for (int x = 0; x < image.width(); x += 2) colours.insert(image.pixel(x, y));
  QVERIFY2(colours.size() > 20, qPrintable(name));
  const QString path = QDir(QStringLiteral(BQ_SCREENSHOT_DIR)).filePath(name);
  QVERIFY(image.save(path));
  qInfo("wrote %s (%dx%d)", qPrintable(path), image.width(), image.height());
}

}  // namespace

class Screenshots : public QObject {
  Q_OBJECT
 private slots:
  void afterTheDeal();
  void learnModeWithJudgement();
  void twentyCardStacks();
  void statistics();
};

void Screenshots::afterTheDeal() {
  Session s;
  QVERIFY(QTest::qWaitForWindowExposed(s.window()));
  QTest::mouseClick(s.find<QWidget>("cmdNew"), Qt::LeftButton);
  Save(s.window(), QStringLiteral("screenshot-game-after-deal.png"));
}

void Screenshots::learnModeWithJudgement() {
  Session s(QStringLiteral("[Options]\nSetBackem=1\nSetTakem=1\n"));
  QVERIFY(QTest::qWaitForWindowExposed(s.window()));
  QTest::mouseClick(s.find<QWidget>("cmdNew"), Qt::LeftButton);
  QWidget* central = s.window()->centralWidget();
  QTest::mouseClick(central, Qt::LeftButton, Qt::ControlModifier | Qt::AltModifier,
                    QPoint(central->width() - 3, central->height() - 3));
  QVERIFY(s.game().judgement_shown());
  // Play a few turns; stop while the computer's move is on show and waits for its button.
  for (int turn = 0; turn < 40; ++turn) {
    if (const char* prompt = ShownPrompt(s)) {
      if (turn >= 6) break;
      QTest::mouseClick(s.find<QWidget>(prompt), Qt::LeftButton);
      continue;
    }
    if (!s.game().Find("lblDrawPile")->enabled) break;  // the game is over
    QTest::mouseClick(s.find<QWidget>("lblDrawPile"), Qt::LeftButton);
    const int card = s.game().state().DrawTop();
    QTest::mouseClick(s.find<QWidget>(Slot("lblCardA", std::clamp((card + 9) / 10, 1, 10))),
                      Qt::LeftButton);
    QTest::mouseClick(s.find<QWidget>("cmdPlayA"), Qt::LeftButton);
  }
  Save(s.window(), QStringLiteral("screenshot-game-learn-mode-judgement.png"));
}

void Screenshots::twentyCardStacks() {
  Session s(QStringLiteral("[Options]\nSetStackem=1\nSetLearnMode=1\n"));
  QVERIFY(QTest::qWaitForWindowExposed(s.window()));
  QTest::mouseClick(s.find<QWidget>("cmdNew"), Qt::LeftButton);
  Save(s.window(), QStringLiteral("screenshot-game-20-cards.png"));
}

void Screenshots::statistics() {
  Session s(
      QStringLiteral("[StatsVsComputer]\nWins1=5\nLosses1=3\nTies1=1\nWins2=2\nLosses2=2\n"
                     "Wins7=7\nLosses7=5\nTies7=1\nWins8=3\nLosses8=2\nTies8=1\n"
                     "LastWinner=1\nWStreak=2\n"));
  s.find<QAction>("mnuStats")->trigger();
  QWidget* stats = s.front->View("frmStats");
  QVERIFY(stats != nullptr && QTest::qWaitForWindowExposed(stats));
  Save(stats, QStringLiteral("screenshot-statistics.png"));
}

QTEST_MAIN(Screenshots)
#include "screenshots.moc"
