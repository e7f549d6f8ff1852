#pragma once

#include <QIcon>
#include <QString>

namespace bq::qt {

// The folder of the running executable; also where click.wav and help.html are installed.
// Works before any QCoreApplication exists.
QString ExecutableDir();

// Where click.wav, help.html and the icon are: beside the executable (a build folder or a
// portable copy), else the installed data folder.
QString DataDir(const QString& exe_dir);

// The module NAME ("bramblequay-sound"), loaded when first needed: beside the executable in a
// build folder, else in the installed library folder.
QString ModulePath(const QString& exe_dir, const QString& name);

// The settings file: an explicit path wins; otherwise "Bramblequay.INI" beside a portable copy
// (data beside the executable) whose folder is writable, else in `config_dir` (created when
// missing).
QString ResolveSettingsPath(const QString& explicit_path, const QString& exe_dir,
                            const QString& config_dir);

// The program's icon at every size it comes in, from the data folder; the desktop theme's when
// the folder has none.
QIcon AppIcon(const QString& data_dir);

// The name of the installed launcher, icon and metadata, without their extensions.
inline constexpr char kAppId[] = "org.example.bramblequay";

// The per-user configuration folder for this program (QStandardPaths::AppConfigLocation).
QString UserConfigDir();

// Twips are 1/1440 inch; Qt's logical pixels are 1/dpi inch.
inline double PixelsToTwips(double pixels, double dpi) {
  return pixels * 1440.0 / dpi;
}
inline double TwipsToPixels(double twips, double dpi) {
  return twips * dpi / 1440.0;
}

}  // namespace bq::qt
