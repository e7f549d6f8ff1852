// The two network dialogs on screen: drawn from their models, typing and clicks reaching them.
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include "qt_fixture.h"

namespace bq::qt {

class DialogsTest : public QObject {
  Q_OBJECT
 private slots:
  void communicateDialogMirrorsItsModelAndTakesTyping() {
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
    QVERIFY(!view->isVisible());
    QCOMPARE(s.app->IsOpen("frmCommunicate"), false);
  }

  void anInvitationOpensItsDialogAndNoClosesIt() {
    test::Session s;
    s.front->Click("optVsHuman");
    s.front->Receive("invi");
    QWidget* view = s.front->View("frmInvitation");
    QVERIFY(view != nullptr && view->isVisible());
    QCOMPARE(test::Mismatches(view, *s.app->Window("frmInvitation")), QStringList());
    QCOMPARE(s.find<QLabel>("StatusBar1.Panel(2)")->text(), QStringLiteral("Invitation received"));
    QVERIFY(!s.find<QPushButton>("cmdNew")->isEnabled());
    QTest::mouseClick(view->findChild<QPushButton*>(QStringLiteral("cmdNo")), Qt::LeftButton);
    QVERIFY(!view->isVisible());
  }
};

}  // namespace bq::qt

QTEST_MAIN(bq::qt::DialogsTest)
#include "dialogs_test.moc"
