#include "ui/qt/app_paths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <filesystem>
#include <system_error>

namespace bq::qt {

QString ExecutableDir() {
  if (QCoreApplication::instance() != nullptr) return QCoreApplication::applicationDirPath();
  std::error_code ec;
  const auto exe = std::filesystem::read_symlink("/proc/self/exe", ec);
  if (ec) return QDir::currentPath();
  return QString::fromStdString(exe.parent_path().string());
}

#ifndef BQ_DATA_FROM_BIN
#define BQ_DATA_FROM_BIN "../share/bramblequay"
#endif

#ifndef BQ_MODULES_FROM_BIN
#define BQ_MODULES_FROM_BIN "../lib/bramblequay"
#endif

namespace {

bool Portable(const QString& exe_dir) {
  return QDir(exe_dir).exists(QStringLiteral("click.wav"));
}

}  // namespace

QString DataDir(const QString& exe_dir) {
  const QDir beside(exe_dir);
  if (Portable(exe_dir)) return beside.absolutePath();
  const QString shared = QDir::cleanPath(exe_dir + QStringLiteral("/" BQ_DATA_FROM_BIN));
  return QDir(shared).exists() ? shared : beside.absolutePath();
}

QString ModulePath(const QString& exe_dir, const QString& name) {
  const QString file = name + QStringLiteral(".so");
  const QString beside = QDir(exe_dir).filePath(file);
  if (QFileInfo::exists(beside)) return beside;
  return QDir::cleanPath(exe_dir + QStringLiteral("/" BQ_MODULES_FROM_BIN "/") + file);
}

QString ResolveSettingsPath(const QString& explicit_path, const QString& exe_dir,
                            const QString& config_dir) {
  if (!explicit_path.isEmpty()) return explicit_path;
  const QFileInfo beside(exe_dir);
  if (Portable(exe_dir) && beside.isDir() && beside.isWritable())
    return QDir(exe_dir).filePath(QStringLiteral("Bramblequay.INI"));
  // Installed (under /usr, say): one file per user, even for root, who could write beside it.
  QDir().mkpath(config_dir);
  return QDir(config_dir).filePath(QStringLiteral("Bramblequay.INI"));
}

QIcon AppIcon(const QString& data_dir) {
  QIcon icon;
  for (int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
    const QString file = QDir(data_dir).filePath(QStringLiteral("bramblequay-%1.png").arg(size));
    if (QFileInfo::exists(file)) icon.addFile(file, QSize(size, size));
  }
  return icon.isNull() ? QIcon::fromTheme(QLatin1String(kAppId)) : icon;
}

QString UserConfigDir() {
  // Static setters work before QCoreApplication exists, so the headless run finds the same file.
  QCoreApplication::setApplicationName(QStringLiteral("Bramblequay"));
  return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
}

}  // namespace bq::qt
