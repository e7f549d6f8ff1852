#pragma once

#include <QString>

namespace bq::qt {

// The folder of the running executable; also where click.wav and help.html are installed.
// Works before any QCoreApplication exists.
QString ExecutableDir();

// Where click.wav, help.html and the icon are: beside the executable (a build folder or a
// portable copy), else the installed share folder.
QString DataDir(const QString& exe_dir);

// The settings file: an explicit path wins; otherwise "Bramblequay.INI" beside the executable
// when that folder is writable, else in `config_dir` (created when missing).
QString ResolveSettingsPath(const QString& explicit_path, const QString& exe_dir,
                            const QString& config_dir);

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
