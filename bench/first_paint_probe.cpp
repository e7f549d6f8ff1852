// Preloaded (LD_PRELOAD) into a Qt Widgets program by startup.py: once the first window has been
// painted and flushed to the display, writes "painted" and the processor time used so far (user
// and system, in microseconds) and the window's size to the file descriptor named by
// FIRST_PAINT_FD. The same measure
// thus applies to any program without changing it. With FIRST_PAINT_EXIT set, the program
// then ends at once, so that a profiler sees the start-up alone.
#include <sys/resource.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <cstdio>
#include <cstdlib>

namespace {

class FirstPaint : public QObject {
 public:
  explicit FirstPaint(int fd) : QObject(QCoreApplication::instance()), fd_(fd) {}

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Paint || !watched->isWidgetType()) return false;
    QCoreApplication::instance()->removeEventFilter(this);
    const QSize size = static_cast<QWidget*>(watched)->window()->size();
    // A window's widgets are painted together and flushed at the end; the zero timer fires after.
    QTimer::singleShot(0, this, [this, size] {
      rusage usage{};
      getrusage(RUSAGE_SELF, &usage);
      const long long us = (usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1000000LL +
                           usage.ru_utime.tv_usec + usage.ru_stime.tv_usec;
      char line[64];
      const int n =
          std::snprintf(line, sizeof line, "painted %lld %dx%d\n", us, size.width(), size.height());
      if (write(fd_, line, static_cast<size_t>(n)) != n) std::_Exit(3);
      if (std::getenv("FIRST_PAINT_EXIT") != nullptr) std::_Exit(0);  // for profilers
    });
    return false;
  }

 private:
  int fd_;
};

void Install() {
  const char* fd = std::getenv("FIRST_PAINT_FD");
  if (fd == nullptr || *fd == '\0') return;
  QCoreApplication::instance()->installEventFilter(new FirstPaint(std::atoi(fd)));
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(Install)
