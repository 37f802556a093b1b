#pragma once
// A fresh program folder and documents folder per test, removed afterwards.

#include <QTemporaryDir>

#include "core/paths.h"

namespace ksv::test {

class TempFolders {
 public:
  TempFolders();
  const Paths& paths() const { return paths_; }
  Paths& paths() { return paths_; }
  QString root() const { return root_.path(); }
  // A path inside the documents folder, for plannings.
  QString document(const QString& name) const { return paths_.documentsDir() + QLatin1Char('/') + name; }

 private:
  QTemporaryDir root_;
  Paths paths_;
};

}  // namespace ksv::test
