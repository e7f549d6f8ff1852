#include "ui/qt/qt_platform.h"

#include <QDesktopServices>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QKeyEvent>
#include <QLibrary>
#include <QMessageBox>
#include <QPixmap>
#include <QProcess>
#include <QScreen>
#include <QStandardPaths>
#include <QStyle>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>
#include <chrono>
#include <iostream>

#include "ui/qt/click_sound.h"

namespace bq::qt {
namespace {

unsigned ClockSeed() {
  return static_cast<unsigned>(std::chrono::steady_clock::now().time_since_epoch().count());
}

bool IsWebAddress(const QString& target) {
  return target.contains(QStringLiteral("://")) || target.startsWith(QStringLiteral("mailto:"));
}

// Platforms that draw nowhere a person could see, so no desktop application would either.
bool DesktopSession() {
  const QString name = QGuiApplication::platformName();
  return !name.isEmpty() && name != QStringLiteral("offscreen") &&
         name != QStringLiteral("minimal") && name != QStringLiteral("minimalegl");
}

// The help document in a window of our own; closed with Escape, like the game's small windows.
class HelpWindow : public QWidget {
 public:
  HelpWindow() : QWidget(nullptr, Qt::Window) {}

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier)
      close();
    else
      QWidget::keyPressEvent(event);
  }
};

// The widest picture of the document, so that the window can show each one whole.
int WidestPicture(QTextDocument* doc) {
  int widest = 0;
  for (QTextBlock block = doc->begin(); block.isValid(); block = block.next())
    for (auto it = block.begin(); !it.atEnd(); ++it) {
      const QTextCharFormat format = it.fragment().charFormat();
      if (!format.isImageFormat()) continue;
      const QVariant v =
          doc->resource(QTextDocument::ImageResource, QUrl(format.toImageFormat().name()));
      QImage image = qvariant_cast<QImage>(v);
      if (image.isNull()) image = qvariant_cast<QPixmap>(v).toImage();
      if (image.isNull()) image = QImage::fromData(v.toByteArray());
      widest = std::max(widest, image.width());
    }
  return widest;
}

}  // namespace

void CentreOver(QWidget* w, QWidget* over) {
  if (w == nullptr || over == nullptr) return;
  QPoint top_left = over->frameGeometry().center() - QPoint(w->width() / 2, w->height() / 2);
  if (const QScreen* s = over->screen()) {
    const QRect room = s->availableGeometry();
    top_left.setX(
        std::clamp(top_left.x(), room.left(), std::max(room.left(), room.right() - w->width())));
    top_left.setY(
        std::clamp(top_left.y(), room.top(), std::max(room.top(), room.bottom() - w->height())));
  }
  w->move(top_left);
}

void OpenWithDesktop(const QUrl& url, std::function<void()> failed, QObject* owner) {
  const QString program = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
  if (program.isEmpty()) {
    if (!QDesktopServices::openUrl(url)) failed();
    return;
  }
  // xdg-open says within moments whether an application took the URL; a browser it runs in the
  // foreground may exit much later, and its exit code then means nothing to us.
  auto* process = new QProcess(owner);
  auto clock = std::make_shared<QElapsedTimer>();
  clock->start();
  QObject::connect(process, &QProcess::finished, owner,
                   [process, clock, failed](int code, QProcess::ExitStatus status) {
                     if (status == QProcess::NormalExit && code != 0 && clock->elapsed() < 15000)
                       failed();
                     process->deleteLater();
                   });
  QObject::connect(process, &QProcess::errorOccurred, owner,
                   [process, failed](QProcess::ProcessError error) {
                     if (error != QProcess::FailedToStart) return;
                     failed();
                     process->deleteLater();
                   });
  process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
  process->setStandardOutputFile(QProcess::nullDevice());
  process->start(program, {url.toString()});
}

QtPlatform::QtPlatform(QtPlatformOptions options)
    : options_(std::move(options)),
      gen_(options_.seed.value_or(ClockSeed())),
      watchers_(std::make_unique<QObject>()) {}

QtPlatform::~QtPlatform() = default;

void QtPlatform::PlayClick() {
  // Loaded at the first click: the multimedia libraries are slow to load and the first frame
  // does not need them.
  if (!sound_probed_) {
    sound_probed_ = true;
    const QString file = QDir(options_.data_dir).filePath(QStringLiteral("click.wav"));
    if (QFileInfo::exists(file) && !sound_module_.isEmpty()) {
      QLibrary module(sound_module_);  // never unloaded: the sound's code stays
      const auto make =
          reinterpret_cast<MakeClickSoundFunction>(module.resolve(kMakeClickSoundSymbol));
      if (make != nullptr)
        click_.reset(make(file));
      else
        Warn("no click sound: " + module.errorString().toStdString());
    }
  }
  if (click_) click_->Play();
}

QString QtPlatform::ResolveTarget(const std::string& target) const {
  const QString t = QString::fromStdString(target);
  if (IsWebAddress(t)) return t;
  const QString file = QDir(options_.data_dir).filePath(t);
  return QFileInfo::exists(file) ? QUrl::fromLocalFile(file).toString() : QString();
}

void QtPlatform::Open(const std::string& target) {
  const QString resolved = ResolveTarget(target);
  if (resolved.isEmpty()) return;  // a missing document is not worth a message
  const QUrl url(resolved);
  // A document of ours always shows: in our own window when the desktop cannot open it.
  std::function<void()> failed = [] {};
  if (!IsWebAddress(QString::fromStdString(target))) failed = [this, url] { ShowInBrowser(url); };
  if (open_url_)
    open_url_(url, failed);
  else if (DesktopSession())
    OpenWithDesktop(url, failed, watchers_.get());
  else
    failed();
}

void QtPlatform::ShowInBrowser(const QUrl& url) {
  if (!help_window_) {
    help_window_ = std::make_unique<HelpWindow>();
    help_window_->setObjectName(QStringLiteral("helpBrowserWindow"));
    auto* column = new QVBoxLayout(help_window_.get());
    column->setContentsMargins(0, 0, 0, 0);
    help_browser_ = new QTextBrowser(help_window_.get());
    help_browser_->setOpenExternalLinks(true);
    column->addWidget(help_browser_);
  }
  const bool first = !help_window_->testAttribute(Qt::WA_Resized);
  help_browser_->setSource(url);
  help_window_->setWindowTitle(help_browser_->documentTitle());
  if (first) {
    // Eighty columns of text, or the widest picture whole, as far as the screen allows.
    const QFontMetrics metrics(help_browser_->font());
    QSize size(std::max(metrics.horizontalAdvance(QLatin1Char('n')) * 80,
                        WidestPicture(help_browser_->document()) +
                            2 * static_cast<int>(help_browser_->document()->documentMargin()) +
                            2 * help_browser_->frameWidth() +
                            help_browser_->style()->pixelMetric(QStyle::PM_ScrollBarExtent)),
               metrics.height() * 40);
    QWidget* over = host_ ? host_->DialogParent() : nullptr;
    if (const QScreen* s = over ? over->screen() : QGuiApplication::primaryScreen())
      size = size.boundedTo(s->availableGeometry().size() - QSize(16, 48));
    help_window_->resize(size);
    CentreOver(help_window_.get(), over);
  }
  help_window_->show();
  help_window_->raise();
  help_window_->activateWindow();
}

void QtPlatform::MessageBox(const std::string& text) {
  QWidget* parent = host_ ? host_->DialogParent() : nullptr;
  QMessageBox::information(parent, QStringLiteral("Bramblequay"), QString::fromStdString(text));
}

void QtPlatform::CriticalBox(const std::string& text, const std::string& detail) {
  QMessageBox box(QMessageBox::Critical, QStringLiteral("Bramblequay"),
                  QString::fromStdString(text), QMessageBox::Ok,
                  host_ ? host_->DialogParent() : nullptr);
  box.setInformativeText(QString::fromStdString(detail));
  box.exec();
}

int QtPlatform::ScreenWidthPixels() {
  if (options_.screen_width) return *options_.screen_width;
  const QScreen* screen = QGuiApplication::primaryScreen();
  return screen ? screen->geometry().width() : 1920;
}

void QtPlatform::WindowOpened(const std::string& window) {
  if (host_) host_->WindowOpened(window);
}

void QtPlatform::WindowClosed(const std::string& window) {
  if (host_) host_->WindowClosed(window);
}

void QtPlatform::Warn(const std::string& text) {
  std::cerr << "bramblequay: " << text << '\n';
}

void QtPlatform::Notice(const std::string& text) {
  Warn(text);
  ShowNotice(text);
}

void QtPlatform::ShowNotice(const std::string& text) {
  auto* box = new QMessageBox(QMessageBox::Warning, QStringLiteral("Bramblequay"),
                              QString::fromStdString(text), QMessageBox::Ok,
                              host_ ? host_->DialogParent() : nullptr);
  box->setObjectName(QStringLiteral("notice"));
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setWindowModality(Qt::NonModal);
  box->show();
}

float QtPlatform::Uniform() {
  return static_cast<float>(gen_() >> 8) * 0x1p-24f;
}

}  // namespace bq::qt
