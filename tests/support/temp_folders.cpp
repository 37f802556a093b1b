#include "temp_folders.h"

#include <QDir>

namespace ksv::test {

TempFolders::TempFolders()
    : paths_(root_.path() + QStringLiteral("/program"), root_.path() + QStringLiteral("/documents")) {
  QDir().mkpath(paths_.programDir());
  QDir().mkpath(paths_.documentsDir());
}

}  // namespace ksv::test
