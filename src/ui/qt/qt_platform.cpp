#include "ui/qt/qt_platform.h"

#include <QAudioDevice>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMediaDevices>
#include <QMessageBox>
#include <QScreen>
#include <QSoundEffect>
#include <QUrl>
#include <chrono>
#include <iostream>

namespace bq::qt {
namespace {

unsigned ClockSeed() {
  return static_cast<unsigned>(std::chrono::steady_clock::now().time_since_epoch().count());
}

}  // namespace

QtPlatform::QtPlatform(QtPlatformOptions options)
    : options_(std::move(options)), gen_(options_.seed.value_or(ClockSeed())) {}

QtPlatform::~QtPlatform() = default;

void QtPlatform::PlayClick() {
  // Probed once, lazily: without an audio device QSoundEffect warns and never finishes playing.
  if (!sound_probed_) {
    sound_probed_ = true;
    const QString file = QDir(options_.data_dir).filePath(QStringLiteral("click.wav"));
    if (QFileInfo::exists(file) && !QMediaDevices::audioOutputs().isEmpty()) {
      click_ = std::make_unique<QSoundEffect>();
      click_->setSource(QUrl::fromLocalFile(file));
    }
  }
  if (click_) {
    click_->stop();
    click_->play();
  }
}

QString QtPlatform::ResolveTarget(const std::string& target) const {
  const QString t = QString::fromStdString(target);
  if (t.contains(QStringLiteral("://")) || t.startsWith(QStringLiteral("mailto:"))) return t;
  const QString file = QDir(options_.data_dir).filePath(t);
  return QFileInfo::exists(file) ? QUrl::fromLocalFile(file).toString() : QString();
}

void QtPlatform::Open(const std::string& target) {
  const QString url = ResolveTarget(target);
  if (!url.isEmpty()) QDesktopServices::openUrl(QUrl(url));
}

void QtPlatform::MessageBox(const std::string& text) {
  QWidget* parent = host_ ? host_->DialogParent() : nullptr;
  QMessageBox::information(parent, QStringLiteral("Bramblequay"), QString::fromStdString(text));
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

float QtPlatform::Uniform() {
  return static_cast<float>(gen_() >> 8) * 0x1p-24f;
}

}  // namespace bq::qt
