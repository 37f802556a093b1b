#pragma once
// The places the program works in: its own folder (ini file, notes, heading
// files, example), the user's documents folder, and the folder of the open
// planning. Injected, so tests run in temporary folders.

#include <QString>

namespace ksv {

// The example planning's file, beside the executable and in the documents folder.
inline constexpr const char* kExampleFileName = "KestrovaneTry.ksv";
// The remark template of new bookings, in the program's folder.
inline constexpr const char* kRemarksFileName = "Ksv_Remarks.txt";

class Paths {
 public:
  Paths(QString programDir, QString documentsDir);

  // The program's folder: KESTROVANE_HOME when set and not empty; otherwise
  // the executable's folder when it is writable and the program is not
  // installed; otherwise a per-user data folder. The folder is created when
  // missing and given a copy of the shipped example when it has none; a new
  // one (no ini file yet) also gets the shipped remark template.
  static QString programDirFor(const QString& executableDir);
  // Where the files shipped with the program lie, read-only: share/kestrovane
  // beside the executable's folder for an installed program, else the
  // executable's folder itself (a build tree).
  static QString shippedDirFor(const QString& executableDir);
  // The user's documents folder, made when missing; empty when the system
  // gives none or it cannot be made.
  static QString systemDocumentsDir();

  const QString& programDir() const { return programDir_; }
  const QString& documentsDir() const { return documentsDir_; }
  const QString& planningDir() const { return planningDir_; }
  void setPlanningDir(QString dir) { planningDir_ = std::move(dir); }

  QString inProgramDir(const QString& fileName) const;
  QString iniFile() const { return inProgramDir(QStringLiteral("Kestrovane.ini")); }
  QString oldIniFile() const { return inProgramDir(QStringLiteral("Kestrovane_v30.Ini")); }
  QString notesFile() const { return inProgramDir(QStringLiteral("Ksv_Notes.txt")); }
  QString remarksTemplate() const { return inProgramDir(QLatin1String(kRemarksFileName)); }
  QString headingRtf() const { return inProgramDir(QStringLiteral("KestrovaneHead.rtf")); }
  QString headingBmp() const { return inProgramDir(QStringLiteral("KestrovaneHead.bmp")); }
  QString exampleFile() const { return inProgramDir(QLatin1String(kExampleFileName)); }
  QString tempPlanning() const { return inProgramDir(QStringLiteral("Temp.ksv")); }

 private:
  QString programDir_;
  QString documentsDir_;
  QString planningDir_;
};

}  // namespace ksv
