#include <QApplication>
#include <QMessageBox>
#include <QtTest>

#include "ui/qt/command_line.h"
#include "ui/qt/qt_platform.h"

using namespace bq::qt;

class StartupTest : public QObject {
  Q_OBJECT
 private slots:
  void commandLine() {
    auto read = [](const QStringList& args) -> QString {
      std::vector<std::string> argv;
      for (const QString& a : args) argv.push_back(a.toStdString());
      const CommandLine cl = ParseCommandLine(argv);
      if (!cl.error.empty()) return "refused";
      if (cl.help || cl.version) return cl.help ? "help" : "version";
      return QStringLiteral("%1 settings=%2 seed=%3 width=%4")
          .arg(cl.headless ? "headless" : "gui", QString::fromStdString(cl.settings),
               cl.seed ? QString::number(*cl.seed) : "-",
               cl.screen_width ? QString::number(*cl.screen_width) : "-");
    };
    QCOMPARE(read({}), "gui settings= seed=- width=-");
    QCOMPARE(read({"--headless", "--settings", "a.ini", "--seed", "42", "--screen-width", "500"}),
             "headless settings=a.ini seed=42 width=500");
    QCOMPARE(read({"--seed=7", "--settings=b c.ini"}), "gui settings=b c.ini seed=7 width=-");
    QCOMPARE(read({"--help"}) + read({"--version"}), "helpversion");
    for (const QStringList& args : {QStringList{"--seed", "x1"},
                                    {"--seed", "-3"},
                                    {"--settings"},
                                    {"--screen-width", "0"},
                                    {"--fullscreen"},
                                    {"--headless=0"},
                                    {"--help=yes"},
                                    {"--players", "expert,classic"},
                                    {"--selfplay", "9", "--players="},
                                    {"-style"}})
      QCOMPARE(read(args), "refused");
    // Qt's options go to Qt, with their values; a file name that looks like one stays ours.
    const CommandLine qt = ParseCommandLine({"--settings", "-reverse", "-style", "fusion",
                                             "--reverse", "-style=windows", "--headless"});
    QCOMPARE(qt.settings, "-reverse");
    QVERIFY(qt.headless);
    QCOMPARE(qt.qt_args,
             (std::vector<std::string>{"-style", "fusion", "--reverse", "-style=windows"}));
  }

  void platform() {
    QTemporaryDir data;
    QtPlatform a({42u, std::nullopt, data.path()}), b({42u, std::nullopt, QString()});
    float low = 1, high = 0;
    for (int i = 0; i < 5000; ++i) {
      const float r = a.Uniform();
      QCOMPARE(r, b.Uniform());  // the same seed, the same game
      low = std::min(low, r);
      high = std::max(high, r);
    }
    QVERIFY(low >= 0 && low < 0.01f && high < 1 && high > 0.99f);

    const QString help = data.filePath(QStringLiteral("help.html"));
    QVERIFY(QFile(help).open(QIODevice::WriteOnly));
    QCOMPARE(a.ResolveTarget("help.html"), QUrl::fromLocalFile(help).toString());
    QCOMPARE(a.ResolveTarget("https://example.org/bq"), QStringLiteral("https://example.org/bq"));
    QCOMPARE(a.ResolveTarget("missing.html"), QString());  // nothing opens, nothing complains

    // A failed save is told over the window without holding up the game.
    a.Notice("cannot save the settings file /x/Bramblequay.INI: file too large");
    QMessageBox* notice = nullptr;
    for (QWidget* w : QApplication::topLevelWidgets())
      if (w->objectName() == QStringLiteral("notice")) notice = qobject_cast<QMessageBox*>(w);
    QVERIFY(notice != nullptr && notice->isVisible());
    QCOMPARE(notice->text(), "cannot save the settings file /x/Bramblequay.INI: file too large");
    QCOMPARE(notice->windowModality(), Qt::NonModal);
    QCOMPARE(QApplication::activeModalWidget(), nullptr);
    notice->close();
  }
};

QTEST_MAIN(StartupTest)
#include "startup_test.moc"
