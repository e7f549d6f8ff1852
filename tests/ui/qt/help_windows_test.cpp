#include <QFile>
#include <QImage>
#include <QLabel>
#include <QTextBrowser>
#include <QtTest>

#include "qt_fixture.h"
#include "ui/qt/app_paths.h"

using namespace bq;
using namespace bq::qt;
using namespace bq::qt::test;

class HelpWindowsTest : public QObject {
  Q_OBJECT
 private slots:
  void initTestCase() { QApplication::setWindowIcon(AppIcon(QStringLiteral(BQ_DATA_DIR))); }

  void aboutWindow() {
    Session s;
    QStringList opened;
    s.platform.set_url_opener([&](const QUrl& url, auto) { opened << url.toString(); });
    QVERIFY(QTest::qWaitForWindowExposed(s.window()));
    s.find<QAction>("mnuHelpAbout")->trigger();
    QWidget* about = s.front->View("frmAbout");
    QVERIFY(about != nullptr && QTest::qWaitForWindowExposed(about));
    QCOMPARE(Mismatches(about, *s.app->Window("frmAbout")), QStringList());
    QVERIFY(!about->findChild<QLabel*>("picIcon")->pixmap().isNull());
    QVERIFY(!about->windowIcon().isNull());
    const QPoint off = about->frameGeometry().center() - s.window()->frameGeometry().center();
    QVERIFY2(off.manhattanLength() < 40, "placed over the middle of the game window");

    auto* website = about->findChild<QLabel*>("lblWebsite");
    QCOMPARE(website->cursor().shape(), Qt::PointingHandCursor);
    QVERIFY(website->font().underline());
    QTest::mouseClick(website, Qt::LeftButton);
    QCOMPARE(opened,
             QStringList{QString::fromStdString(s.app->Find("frmAbout.lblWebsite")->caption)});
    const int one_line = website->fontMetrics().height() * 3 / 2;
    QVERIFY(about->findChild<QLabel*>("lblDescription")->height() < one_line);

    // Escape closes it, as its frame would.
    QTest::keyClick(about->findChild<QWidget*>("cmdOK"), Qt::Key_Escape);
    QVERIFY(!s.app->IsOpen("frmAbout") && !about->isVisible());
  }

  void howToPlayAlwaysShowsTheDocument() {
    Session s;
    for (const char* file : {"help.html", "help-board-turn.png"})
      QVERIFY(QFile::copy(QStringLiteral(BQ_DATA_DIR "/") + file, s.dir.filePath(file)));
    // No desktop session here: our own window shows it, pictures and all.
    s.find<QAction>("mnuHelpHowToPlay")->trigger();
    QTextBrowser* browser = s.platform.help_browser();
    QVERIFY(browser != nullptr && browser->isVisible());
    QVERIFY(browser->toPlainText().contains(QStringLiteral("Playing over a network")));
    QCOMPARE(browser->window()->windowTitle(), QStringLiteral("How to play Bramblequay"));
    const QVariant picture = browser->loadResource(QTextDocument::ImageResource,
                                                   QUrl(QStringLiteral("help-board-turn.png")));
    QVERIFY(!qvariant_cast<QImage>(picture).isNull() || !picture.toByteArray().isEmpty());
    // Its pictures whole, as far as the screen allows, and over the game window.
    const QRect screen = s.window()->screen()->availableGeometry();
    QVERIFY(browser->viewport()->width() >= std::min(1084, screen.width() - 80));
    QVERIFY(browser->window()->geometry().intersects(s.window()->geometry()));
    QTest::keyClick(browser, Qt::Key_Escape);
    QVERIFY(!browser->isVisible());

    // A desktop that takes it shows it itself; one that answers that it cannot leaves it to us.
    std::function<void()> report;
    s.platform.set_url_opener([&](const QUrl& url, std::function<void()> failed) {
      QVERIFY(url.isLocalFile());
      report = failed;
    });
    s.find<QAction>("mnuPopupHelpHowToPlay")->trigger();
    QVERIFY(report && !s.platform.help_browser()->isVisible());
    report();
    QVERIFY(s.platform.help_browser()->isVisible());
  }
};

QTEST_MAIN(HelpWindowsTest)
#include "help_windows_test.moc"
