#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QRegularExpression>
#include <QSet>
#include <QTextDocument>
#include <QtTest>
#include <cmath>

#include "qt_fixture.h"

using namespace bq;
using namespace bq::qt;
using namespace bq::qt::test;

namespace {

// The pictures the program ships (the help document's and How To Play's) go to a folder of the
// build, unless scripts/make-pictures.sh names the data folder.
QString PicturesDir() {
  QString dir = qEnvironmentVariable("BQ_PICTURES_DIR");
  if (dir.isEmpty()) dir = QStringLiteral(BQ_SCREENSHOT_DIR "/pictures");
  QDir().mkpath(dir);
  return dir;
}

// Saves the picture under the name in the folder, a JPEG at the quality given. A blank or
// one-colour picture means the platform had no fonts or nothing was laid out.
void SaveImage(const QImage& image, const QString& dir, const QString& name, int quality = -1) {
  QSet<QRgb> colours;
  for (int y = 0; y < image.height(); y += 2)
    for (int x = 0; x < image.width(); x += 2) colours.insert(image.pixel(x, y));
  QVERIFY2(colours.size() > 20, qPrintable(name));
  const QString path = QDir(dir).filePath(name);
  QVERIFY(image.save(path, nullptr, quality));
  qInfo("wrote %s (%dx%d)", qPrintable(path), image.width(), image.height());
}

QImage Grab(QWidget* widget) {
  QCoreApplication::processEvents();  // pending layout requests, as the event loop would
  return widget->grab().toImage();
}

void Save(QWidget* widget, const QString& name) {
  SaveImage(Grab(widget), QStringLiteral(BQ_SCREENSHOT_DIR), name);
}

// Scaled to fit WIDTH x HEIGHT exactly, the rest filled with the picture's own background.
QImage Fitted(const QImage& image, int width, int height) {
  QImage out(width, height, QImage::Format_RGB32);
  out.fill(image.pixel(image.width() - 2, image.height() / 2));
  const QImage scaled = image.scaled(width, height, Qt::KeepAspectRatio, Qt::SmoothTransformation);
  QPainter painter(&out);
  painter.drawImage((width - scaled.width()) / 2, (height - scaled.height()) / 2, scaled);
  return out;
}

const char* VisibleResult(GameModel& game) {
  for (const char* name : {"cmdAWins", "cmdBWins", "cmdCWins", "cmdBothWin"})
    if (game.Find(name)->visible) return name;
  return nullptr;
}

// Plays on in Fast Mode until a result, aiming for a card of decade t in slot t (which is an
// ascending Stack): a pile's card goes to its decade's slot when that slot holds a stranger.
void PlayToTheEnd(Session& s) {
  auto slot_for = [](int card) { return std::clamp((card + 9) / 10, 1, 10); };
  auto misfit = [&](int slot) { return slot_for(s.game().state().Card(kSideA, slot)) != slot; };
  auto click = [&](const std::string& name) { QTest::mouseClick(s.find(name), Qt::LeftButton); };
  auto card = [](int slot) { return "lblCardA(" + std::to_string(slot) + ")"; };
  for (int turn = 0; turn < 500 && VisibleResult(s.game()) == nullptr; ++turn) {
    if (s.game().cmdCTakesNothing.visible) {  // a turned-down card waits for its button
      click("cmdCTakesNothing");
      continue;
    }
    const int discard = slot_for(s.game().state().discard_top);
    if (misfit(discard)) {
      click("lblDiscardPile");
      click(card(discard));
      continue;
    }
    click("lblDrawPile");
    const int draw = slot_for(s.game().state().DrawTop());
    click(misfit(draw) ? card(draw) : std::string("lblDiscardPile"));  // else a pass
  }
}

// Plays games in Fast Mode until side A wins one.
void PlayUntilAWins(Session& s) {
  for (int game = 0; game < 30; ++game) {
    QTest::mouseClick(s.find("cmdNew"), Qt::LeftButton);
    PlayToTheEnd(s);
    const char* result = VisibleResult(s.game());
    QVERIFY(result != nullptr);
    if (std::string_view(result) == "cmdAWins") return;
    QTest::mouseClick(s.find(result), Qt::LeftButton);
  }
  QFAIL("the player won none of 30 games");
}

// Everything but the card faces follows the palette; this one, worked out from a button and a
// window colour, stands for a dark desktop.
QPalette Dark() {
  QPalette p(QColor(0x3a3c40), QColor(0x2b2d30));
  p.setColor(QPalette::Highlight, QColor(0x4a90d9));
  return p;
}

// "100" or "200", from the scale the run was started with.
QString Scale() {
  const double factor = qEnvironmentVariable("QT_SCALE_FACTOR", QStringLiteral("1")).toDouble();
  return QString::number(std::lround(factor * 100));
}

}  // namespace

class Screenshots : public QObject {
  Q_OBJECT
 private slots:
  void board();
  void learnModeWithJudgement();
  void howToPictures();
  void helpDocumentBoard();
};

// The board after the computer's reply to a first move (its change lit up), light and dark, 10
// and 20 cards. (How To Play's screenshot shows an ending.)
void Screenshots::board() {
  const QPalette light = QApplication::palette();
  for (const bool dark : {false, true}) {
    const QString look = dark ? QStringLiteral("dark") : QStringLiteral("light");
    for (const char* cards : {"10", "20"}) {
      Session s(cards == QLatin1String("20") ? "[Options]\nSetStackem=1\nSetTakem=1\n"
                                             : "[Options]\nSetSmackem=1\n");
      QVERIFY(QTest::qWaitForWindowExposed(s.window()));
      // The desktop turns dark while the window is open.
      QApplication::setPalette(dark ? Dark() : light);
      s.click({"cmdNew", "lblDrawPile", "lblCardA(5)", "cmdPlayA"});
      const QImage shot = Grab(s.window());
      const QColor corner = shot.pixelColor(shot.width() - 4, shot.height() / 2);
      QVERIFY2(dark == (corner.lightness() < 100), qPrintable(corner.name()));
      Save(s.window(), QStringLiteral("screenshot-board-%1-%2-%3.png").arg(Scale(), look, cards));
    }
  }
  QApplication::setPalette(light);
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
    s.click({"lblDrawPile"});
    const int slot = std::clamp((s.game().state().DrawTop() + 9) / 10, 1, 10);
    s.click({("lblCardA(" + std::to_string(slot) + ")").c_str(), "cmdPlayA"});
  }
  Save(s.window(), QStringLiteral("screenshot-game-learn-mode-judgement-%1.png").arg(Scale()));
  if (Scale() == QLatin1String("100"))  // the help's picture is made at 100 % only
    SaveImage(Grab(s.window()), PicturesDir(), QStringLiteral("help-board-learn.png"));
}

void Screenshots::helpDocumentBoard() {
  // Your turn, the Draw Pile card turned up and the card it will replace chosen.
  Session s;
  QVERIFY(QTest::qWaitForWindowExposed(s.window()));
  s.click({"cmdNew"});
  if (s.game().cmdCTakesNothing.visible)  // the computer moved first and turned a card down
    s.click({"cmdCTakesNothing"});
  QVERIFY(s.game().lblDrawPile.enabled);
  s.click({"lblDrawPile"});
  const int slot = std::clamp((s.game().state().DrawTop() + 9) / 10, 1, 10);
  QTest::mouseClick(s.find("lblCardA(" + std::to_string(slot) + ")"), Qt::LeftButton);
  QVERIFY(s.game().cmdPlayA.visible && s.game().cmdPlayA.enabled);
  SaveImage(Grab(s.window()), PicturesDir(), QStringLiteral("help-board-turn.png"));
}

void Screenshots::howToPictures() {
  // The screenshot: a game that the player, side A, won.
  Session s("[Options]\nSetFastMode=1\n");
  QVERIFY(QTest::qWaitForWindowExposed(s.window()));
  PlayUntilAWins(s);
  QVERIFY(s.game().cmdAWins.visible);
  SaveImage(Fitted(Grab(s.window()), 454, 251), PicturesDir(),
            QStringLiteral("howto-screenshot.jpg"), 85);

  // The rules: the help document's first sections as one page of text.
  QFile help(QStringLiteral(BQ_SOURCE_DATA_DIR "/help.html"));
  QVERIFY(help.open(QIODevice::ReadOnly));
  const QString html = QString::fromUtf8(help.readAll());
  const QRegularExpression rules(QStringLiteral("<!-- rules -->(.*)<!-- /rules -->"),
                                 QRegularExpression::DotMatchesEverythingOption);
  const QRegularExpressionMatch match = rules.match(html);
  QVERIFY(match.hasMatch());
  constexpr int kWidth = 492, kHeight = 838, kMargin = 14;
  QTextDocument page;
  page.setDefaultStyleSheet(QStringLiteral("h2 { color: #254774; } p, li { color: #1b1b1b; }"));
  page.setHtml(match.captured(1));
  page.setTextWidth(kWidth - 2 * kMargin);
  QFont font = QApplication::font();
  // The largest type that fits the page.
  for (double size = 12; size >= 7; size -= 0.25) {
    font.setPointSizeF(size);
    page.setDefaultFont(font);
    if (page.size().height() <= kHeight - 2 * kMargin) break;
  }
  QVERIFY(page.size().height() <= kHeight - 2 * kMargin);
  QImage image(kWidth, kHeight, QImage::Format_RGB32);
  image.fill(QColor(0xfb, 0xf8, 0xee));
  QPainter painter(&image);
  painter.setRenderHint(QPainter::TextAntialiasing);
  painter.translate(kMargin, kMargin);
  page.drawContents(&painter);
  painter.end();
  SaveImage(image, PicturesDir(), QStringLiteral("howto-rules.jpg"), 75);
}

QTEST_MAIN(Screenshots)
#include "screenshots.moc"
