// The yardstick for the program's start-up: an empty Qt Widgets window of the game window's size.
// With --text it shows one line of text, which is what any window with words in it pays for:
// the font database read from fontconfig and one font loaded.
#include <QApplication>
#include <QLabel>
#include <QWidget>
#include <cstring>

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QWidget window;
  window.setWindowTitle(QStringLiteral("Empty"));
  window.resize(607, 349);
  if (argc > 1 && std::strcmp(argv[1], "--text") == 0)
    (new QLabel(QStringLiteral("New Game"), &window))->move(20, 20);
  window.show();
  return QApplication::exec();
}
