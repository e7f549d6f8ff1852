// The dialogs on screen: the two network dialogs drawn from their models, typing and clicks
// reaching them, and the question before a game is abandoned.
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest>

#include "qt_fixture.h"

namespace bq::qt {

class DialogsTest : public QObject {
  Q_OBJECT
 private slots:
  void networkDialogsMirrorTheirModelsAndTakeTypingAndClicks() {
    test::Session s;
    s.front->Click("optVsHuman");
    s.front->Click("cmdSetupRemoteOpponent");
    QWidget* view = s.front->View("frmCommunicate");
    QVERIFY(view != nullptr && view->isVisible());
    const WindowModel& model = *s.app->Window("frmCommunicate");
    QCOMPARE(test::Mismatches(view, model), QStringList());
    auto* port = view->findChild<QLineEdit*>(QStringLiteral("txtPortB"));
    QVERIFY(port != nullptr);
    QTest::keyClicks(port, QStringLiteral("4 2"));
    QCOMPARE(model.Find("txtPortB")->caption, std::string("4 2"));
    QCOMPARE(port->toolTip(),
             QStringLiteral("Any integer from 1000 to 9999 except your port number."));
    QTest::mouseClick(view->findChild<QPushButton*>(QStringLiteral("cmdCancel")), Qt::LeftButton);
    QVERIFY(!view->isVisible() && !s.app->IsOpen("frmCommunicate"));

    // An invitation opens its dialog, and No closes it.
    s.front->Receive("invi");
    view = s.front->View("frmInvitation");
    QVERIFY(view != nullptr && view->isVisible());
    QCOMPARE(test::Mismatches(view, *s.app->Window("frmInvitation")), QStringList());
    // Room for its title in a desktop's bold title bar, beside the bar's buttons.
    QVERIFY(view->width() > 1.2 * view->fontMetrics().horizontalAdvance(view->windowTitle()) + 90);
    QCOMPARE(s.find<QLabel>("StatusBar1.Panel(2)")->text(), QStringLiteral("Invitation received"));
    QVERIFY(!s.find<QPushButton>("cmdNew")->isEnabled());
    QTest::mouseClick(view->findChild<QPushButton*>(QStringLiteral("cmdNo")), Qt::LeftButton);
    QVERIFY(!view->isVisible());
  }

  // Quitting or leaving a counted game asks first: No keeps the game, from the button and from
  // the window's frame; Yes with "Don't ask again" quits and is remembered. A Learn Mode game is
  // not counted and goes without a question.
  void abandoningACountedGameAsksFirst() {
    test::Session s;
    s.click({"optLearnModeOn", "cmdNew", "cmdQuit", "optLearnModeOff"});
    QCOMPARE(s.abandon_questions, 0);
    QVERIFY(!s.game().game_running());

    s.front->set_abandon_question({});  // the real box from here on
    QString asked;
    auto answer_next = [&](QMessageBox::StandardButton button, bool dont_ask_again) {
      auto* poll = new QTimer(this);
      connect(poll, &QTimer::timeout, this, [&asked, poll, button, dont_ask_again] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) return;
        poll->stop();
        poll->deleteLater();
        asked = box->text() + QLatin1Char('|') + box->checkBox()->text();
        box->checkBox()->setChecked(dont_ask_again);
        box->button(button)->click();
      });
      poll->start(10);
    };
    s.click({"cmdNew"});
    answer_next(QMessageBox::No, true);
    s.click({"cmdQuit"});
    QCOMPARE(asked, QStringLiteral("Abandon this game? It will not be counted.|Don't ask again"));
    QVERIFY(s.game().game_running());
    asked.clear();
    answer_next(QMessageBox::No, false);
    s.window()->close();
    QVERIFY(!asked.isEmpty() && s.window()->isVisible() && !s.front->finished());
    answer_next(QMessageBox::Yes, true);
    s.find<QAction>("mnuFileQuitGame")->trigger();
    QVERIFY(!s.game().game_running());

    int more = 0;
    s.front->set_abandon_question([&more](bool&) { return ++more > 0; });
    s.click({"cmdNew"});
    s.find<QAction>("mnuFileExit")->trigger();
    QVERIFY(s.front->finished());
    QCOMPARE(more, 0);
    QCOMPARE(LoadSettings(s.path).ask_before_abandoning, false);
    test::Session next("[Options]\n[Preferences]\nAskAbandon=0\n");
    next.click({"cmdNew", "cmdQuit"});
    QVERIFY(!next.game().game_running());
    QCOMPARE(next.abandon_questions, 0);
  }
};

}  // namespace bq::qt

QTEST_MAIN(bq::qt::DialogsTest)
#include "dialogs_test.moc"
