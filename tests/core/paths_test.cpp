#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "core/paths.h"

using ksv::Paths;

TEST(Paths, ProgramFolderRule) {
  QTemporaryDir tmp;
  const QString exeDir = tmp.path() + "/bin";
  QDir().mkpath(exeDir);

  qputenv("KESTROVANE_HOME", "");
  EXPECT_EQ(Paths::programDirFor(exeDir), QDir(exeDir).absolutePath());  // writable: the executable's folder

  const QString home = tmp.path() + "/home/kestrovane";
  qputenv("KESTROVANE_HOME", home.toUtf8());
  EXPECT_EQ(Paths::programDirFor(exeDir), home);  // the override wins, and is created
  EXPECT_TRUE(QDir(home).exists());

  // A program folder away from the executable gets the shipped example once;
  // its own copy, perhaps changed, is never overwritten.
  QFile shipped(exeDir + "/KestrovaneTry.ksv");
  ASSERT_TRUE(shipped.open(QIODevice::WriteOnly));
  shipped.write("shipped");
  shipped.close();
  const QString other = tmp.path() + "/other";
  qputenv("KESTROVANE_HOME", other.toUtf8());
  Paths::programDirFor(exeDir);
  QFile copy(other + "/KestrovaneTry.ksv");
  ASSERT_TRUE(copy.open(QIODevice::ReadWrite));
  EXPECT_EQ(copy.readAll(), "shipped");
  copy.resize(0);
  copy.write("own");
  copy.close();
  Paths::programDirFor(exeDir);
  ASSERT_TRUE(copy.open(QIODevice::ReadOnly));
  EXPECT_EQ(copy.readAll(), "own");

  qputenv("KESTROVANE_HOME", "");
  QFile::setPermissions(exeDir, QFileDevice::ReadOwner | QFileDevice::ExeOwner);
  if (!QFileInfo(exeDir).isWritable()) {  // root can write anywhere; the rule still holds for users
    const QString dir = Paths::programDirFor(exeDir);
    EXPECT_NE(dir, QDir(exeDir).absolutePath());
    EXPECT_TRUE(dir.endsWith("/kestrovane"));
  }
  QFile::setPermissions(exeDir, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
  qunsetenv("KESTROVANE_HOME");
}

// An installed program: bin/kestrovane and share/kestrovane beside it. Even
// a writable bin (root) is no program folder; the per-user folder gets the
// example, and the remark template while it is new.
TEST(Paths, InstalledProgram) {
  QTemporaryDir tmp;
  const QString bin = tmp.path() + "/usr/bin", share = tmp.path() + "/usr/share/kestrovane";
  QDir().mkpath(bin);
  EXPECT_EQ(Paths::shippedDirFor(bin), bin);  // a build tree: the files stand beside the program
  QDir().mkpath(share);
  EXPECT_EQ(Paths::shippedDirFor(bin), share);
  for (const char* name : {"KestrovaneTry.ksv", "Ksv_Remarks.txt"}) {
    QFile f(share + "/" + name);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(name);
    f.close();
    f.setPermissions(QFileDevice::ReadOwner | QFileDevice::ReadOther);  // as installed
  }

  const QByteArray oldData = qgetenv("XDG_DATA_HOME");
  qputenv("XDG_DATA_HOME", (tmp.path() + "/data").toUtf8());
  qputenv("KESTROVANE_HOME", "");
  const QString own = tmp.path() + "/data/kestrovane";
  EXPECT_EQ(Paths::programDirFor(bin), own);
  const Paths paths(own, tmp.path());
  QFile remarks(paths.remarksTemplate());
  ASSERT_TRUE(remarks.open(QIODevice::ReadWrite));  // the user's copies take writes
  EXPECT_EQ(remarks.readAll(), "Ksv_Remarks.txt");
  remarks.close();
  EXPECT_TRUE(QFileInfo(paths.exampleFile()).isWritable());

  // Once the folder has its ini file, a deleted template stays deleted.
  QFile ini(paths.iniFile());
  ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
  ini.close();
  QFile::remove(paths.remarksTemplate());
  QFile::remove(paths.exampleFile());
  Paths::programDirFor(bin);
  EXPECT_FALSE(QFileInfo::exists(paths.remarksTemplate()));
  EXPECT_TRUE(QFileInfo::exists(paths.exampleFile()));

  oldData.isNull() ? qunsetenv("XDG_DATA_HOME") : qputenv("XDG_DATA_HOME", oldData);
  qunsetenv("KESTROVANE_HOME");
}

TEST(Paths, FilesOfTheProgramFolder) {
  const Paths p("/opt/ksv", "/home/u/Documents");
  EXPECT_EQ(p.iniFile(), "/opt/ksv/Kestrovane.ini");
  EXPECT_EQ(p.oldIniFile(), "/opt/ksv/Kestrovane_v30.Ini");
  EXPECT_EQ(p.notesFile(), "/opt/ksv/Ksv_Notes.txt");
  EXPECT_EQ(p.exampleFile(), "/opt/ksv/KestrovaneTry.ksv");
  EXPECT_EQ(p.remarksTemplate(), "/opt/ksv/Ksv_Remarks.txt");
  EXPECT_EQ(p.headingRtf(), "/opt/ksv/KestrovaneHead.rtf");
  EXPECT_EQ(p.tempPlanning(), "/opt/ksv/Temp.ksv");
  EXPECT_EQ(p.documentsDir(), "/home/u/Documents");
}
