// The yardstick for the program's start-up: an empty Qt Widgets window of the game window's size.
#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QWidget window;
  window.setWindowTitle(QStringLiteral("Empty"));
  window.resize(607, 349);
  window.show();
  return QApplication::exec();
}
