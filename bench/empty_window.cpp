// The yardstick for the program's start-up: an empty Qt Widgets window, by default of the game
// window's base size (--size WxH for another). With --text it shows one line of text, which is
// what any window with words in it pays for: the font database read from fontconfig and one font
// loaded.
#include <QApplication>
#include <QLabel>
#include <QWidget>
#include <cstring>

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QWidget window;
  window.setWindowTitle(QStringLiteral("Empty"));
  window.resize(607, 349);
  for (int i = 1; i < argc; ++i) {
    int w = 0, h = 0;
    if (std::strcmp(argv[i], "--text") == 0)
      (new QLabel(QStringLiteral("New Game"), &window))->move(20, 20);
    else if (std::strcmp(argv[i], "--size") == 0 && i + 1 < argc &&
             std::sscanf(argv[++i], "%dx%d", &w, &h) == 2 && w > 0 && h > 0)
      window.resize(w, h);
  }
  window.show();
  return QApplication::exec();
}
