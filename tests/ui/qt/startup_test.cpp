#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include "ui/qt/app_paths.h"
#include "ui/qt/command_line.h"
#include "ui/qt/qt_platform.h"

using namespace bq::qt;

class StartupTest : public QObject {
  Q_OBJECT
 private slots:
  void settingsFileLocation();
  void commandLine_data();
  void commandLine();
  void randomNumbers();
  void helpAndWebTargets();
};

void StartupTest::settingsFileLocation() {
  QTemporaryDir exe;
  QTemporaryDir home;
  const QString config = home.filePath(QStringLiteral("conf/Bramblequay"));
  // An explicit file wins over everything.
  QCOMPARE(ResolveSettingsPath(QStringLiteral("/x/my.ini"), exe.path(), config),
           QStringLiteral("/x/my.ini"));
  // A writable program folder keeps the file beside the program.
  QCOMPARE(ResolveSettingsPath(QString(), exe.path(), config),
           QDir(exe.path()).filePath(QStringLiteral("Bramblequay.INI")));
  QVERIFY(!QDir(config).exists());
  // A program folder that cannot take it sends the file to the user's folder, made on demand.
  const QString gone = exe.filePath(QStringLiteral("no-such-folder"));
  QCOMPARE(ResolveSettingsPath(QString(), gone, config),
           QDir(config).filePath(QStringLiteral("Bramblequay.INI")));
  QVERIFY(QDir(config).exists());
}

void StartupTest::commandLine_data() {
  QTest::addColumn<QStringList>("args");
  QTest::addColumn<QString>("summary");
  QTest::addColumn<bool>("ok");
  QTest::newRow("none") << QStringList() << "gui settings= seed=- width=-" << true;
  QTest::newRow("all") << QStringList{"--headless", "--settings",     "a.ini", "--seed",
                                      "42",         "--screen-width", "500"}
                       << "headless settings=a.ini seed=42 width=500" << true;
  QTest::newRow("with =") << QStringList{"--seed=7", "--settings=b c.ini"}
                          << "gui settings=b c.ini seed=7 width=-" << true;
  QTest::newRow("help") << QStringList{"--help"} << "help" << true;
  QTest::newRow("version") << QStringList{"--version"} << "version" << true;
  QTest::newRow("seed not a number") << QStringList{"--seed", "x1"} << "" << false;
  QTest::newRow("negative seed") << QStringList{"--seed", "-3"} << "" << false;
  QTest::newRow("missing value") << QStringList{"--settings"} << "" << false;
  QTest::newRow("zero width") << QStringList{"--screen-width", "0"} << "" << false;
  QTest::newRow("unknown") << QStringList{"--fullscreen"} << "" << false;
}

void StartupTest::commandLine() {
  QFETCH(QStringList, args);
  QFETCH(QString, summary);
  QFETCH(bool, ok);
  std::vector<std::string> argv;
  for (const QString& a : args) argv.push_back(a.toStdString());
  const CommandLine cl = ParseCommandLine(argv);
  QCOMPARE(cl.error.empty(), ok);
  if (!ok) return;
  QString got;
  if (cl.help) got = "help";
  if (cl.version) got = "version";
  if (got.isEmpty())
    got = QStringLiteral("%1 settings=%2 seed=%3 width=%4")
              .arg(cl.headless ? "headless" : "gui", QString::fromStdString(cl.settings),
                   cl.seed ? QString::number(*cl.seed) : "-",
                   cl.screen_width ? QString::number(*cl.screen_width) : "-");
  QCOMPARE(got, summary);
}

void StartupTest::randomNumbers() {
  QtPlatform a({42u, std::nullopt, QString()});
  QtPlatform b({42u, std::nullopt, QString()});
  QtPlatform c({43u, std::nullopt, QString()});
  bool differs = false;
  float low = 1, high = 0;
  for (int i = 0; i < 5000; ++i) {
    const float r = a.Uniform();
    QCOMPARE(r, b.Uniform());  // the same seed, the same game
    differs = differs || r != c.Uniform();
    QVERIFY(r >= 0.0f && r < 1.0f);
    low = std::min(low, r);
    high = std::max(high, r);
  }
  QVERIFY(differs);
  QVERIFY(low < 0.01f && high > 0.99f);
  QCOMPARE(QtPlatform({1u, 640, QString()}).ScreenWidthPixels(), 640);
}

void StartupTest::helpAndWebTargets() {
  QTemporaryDir data;
  QFile help(data.filePath(QStringLiteral("help.html")));
  QVERIFY(help.open(QIODevice::WriteOnly));
  help.close();
  QtPlatform p({1u, std::nullopt, data.path()});
  QCOMPARE(p.ResolveTarget("help.html"), QUrl::fromLocalFile(help.fileName()).toString());
  QCOMPARE(p.ResolveTarget("https://example.org/bq"), QStringLiteral("https://example.org/bq"));
  QCOMPARE(p.ResolveTarget("missing.html"), QString());  // nothing opens, nothing complains
}

QTEST_MAIN(StartupTest)
#include "startup_test.moc"
