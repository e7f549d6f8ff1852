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

// Saves the widget as the named PNG. A blank or one-colour picture means the platform had no
// fonts or nothing was laid out.
void Save(QWidget* widget, const QString& name) {
  QCoreApplication::processEvents();  // pending layout requests, as the event loop would
  const QImage image = widget->grab().toImage();
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
  void statistics();
};

void Screenshots::afterTheDeal() {
  for (const auto& [settings, name] :
       {std::pair{"", "screenshot-game-after-deal.png"},
        std::pair{"[Options]\nSetStackem=1\nSetLearnMode=1\n", "screenshot-game-20-cards.png"}}) {
    Session s(settings);
    QVERIFY(QTest::qWaitForWindowExposed(s.window()));
    QTest::mouseClick(s.find("cmdNew"), Qt::LeftButton);
    Save(s.window(), QString::fromLatin1(name));
  }
}

void Screenshots::learnModeWithJudgement() {
  Session s("[Options]\nSetBackem=1\nSetTakem=1\n");
  QVERIFY(QTest::qWaitForWindowExposed(s.window()));
  QTest::mouseClick(s.find("cmdNew"), Qt::LeftButton);
  QWidget* central = s.window()->centralWidget();
  QTest::mouseClick(central, Qt::LeftButton, Qt::ControlModifier | Qt::AltModifier,
                    QPoint(central->width() - 3, central->height() - 3));
  QVERIFY(s.game().judgement_shown());
  // A few turns, stopping while the computer's move is on show and waits for its button.
  for (int turn = 0; turn < 40; ++turn) {
    const char* prompt = nullptr;
    for (const char* name : {"cmdCTakesDiscard", "cmdCTakesDraw", "cmdCTakesNothing", "cmdBackemC",
                             "cmdSwitchemC", "cmdSmackemC", "cmdTakemC"})
      if (const Control* c = s.game().Find(name); c->visible && c->enabled) prompt = name;
    if (prompt != nullptr && turn >= 6) break;
    if (prompt != nullptr) {
      QTest::mouseClick(s.find(prompt), Qt::LeftButton);
      continue;
    }
    if (!s.game().Find("lblDrawPile")->enabled) break;  // the game is over
    QTest::mouseClick(s.find("lblDrawPile"), Qt::LeftButton);
    const int slot = std::clamp((s.game().state().DrawTop() + 9) / 10, 1, 10);
    QTest::mouseClick(s.find("lblCardA(" + std::to_string(slot) + ")"), Qt::LeftButton);
    QTest::mouseClick(s.find("cmdPlayA"), Qt::LeftButton);
  }
  Save(s.window(), QStringLiteral("screenshot-game-learn-mode-judgement.png"));
}

void Screenshots::statistics() {
  Session s(
      "[StatsVsComputer]\nWins1=5\nLosses1=3\nTies1=1\nWins2=2\nLosses2=2\n"
      "Wins7=7\nLosses7=5\nTies7=1\nWins8=3\nLosses8=2\nTies8=1\nLastWinner=1\nWStreak=2\n");
  s.find<QAction>("mnuStats")->trigger();
  QWidget* stats = s.front->View("frmStats");
  QVERIFY(stats != nullptr && QTest::qWaitForWindowExposed(stats));
  Save(stats, QStringLiteral("screenshot-statistics.png"));
}

QTEST_MAIN(Screenshots)
#include "screenshots.moc"
