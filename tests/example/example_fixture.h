#pragma once
// The example planning the build made beside the program, copied into a
// fresh program folder so that no test touches the build's own file.

#include <gtest/gtest.h>

#include <QFile>

#include "core/texts.h"
#include "storage/sqlite_db.h"
#include "support/scripted_messages.h"
#include "support/temp_folders.h"

namespace ksv::test {

class ExampleFixture : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(QFile::exists(QStringLiteral(KSV_EXAMPLE_FILE))) << KSV_EXAMPLE_FILE;
    ASSERT_TRUE(QFile::copy(QStringLiteral(KSV_EXAMPLE_FILE), folders.paths().exampleFile()));
  }
  QString example() const { return folders.paths().exampleFile(); }
  Database open() { return Database(example(), Database::OpenMode::ReadOnly); }

  TempFolders folders;
  ScriptedMessages messages;
  const Texts texts{0};
};

}  // namespace ksv::test
