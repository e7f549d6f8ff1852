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

QString DataDir(const QString& exe_dir) {
  const QDir beside(exe_dir);
  if (beside.exists(QStringLiteral("click.wav"))) return beside.absolutePath();
  const QString shared = QDir::cleanPath(exe_dir + QStringLiteral("/../share/bramblequay"));
  return QDir(shared).exists() ? shared : beside.absolutePath();
}

QString ResolveSettingsPath(const QString& explicit_path, const QString& exe_dir,
                            const QString& config_dir) {
  if (!explicit_path.isEmpty()) return explicit_path;
  const QFileInfo beside(exe_dir);
  if (beside.isDir() && beside.isWritable())
    return QDir(exe_dir).filePath(QStringLiteral("Bramblequay.INI"));
  // Installed read-only (e.g. under /usr): keep one file per user instead.
  QDir().mkpath(config_dir);
  return QDir(config_dir).filePath(QStringLiteral("Bramblequay.INI"));
}

QString UserConfigDir() {
  // Static setters work before QCoreApplication exists, so the headless run finds the same file.
  QCoreApplication::setApplicationName(QStringLiteral("Bramblequay"));
  return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
}

}  // namespace bq::qt
