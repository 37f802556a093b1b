#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>

#include "core/texts.h"
#include "storage/connecting.h"
#include "storage/creation.h"
#include "storage/recordset.h"
#include "storage/roster.h"
#include "storage/schema.h"
#include "support/file_bytes.h"
#include "support/scripted_messages.h"
#include "support/temp_folders.h"

using namespace ksv;
using ksv::test::ScriptedMessages;
using ksv::test::TempFolders;

namespace {

class ConnectingTest : public ::testing::Test {
 protected:
  void SetUp() override {
    path_ = folders_.document("hotel.ksv");
    ASSERT_TRUE(Creation(path_, CreationContext{messages_, texts_, folders_.paths()}));
  }
  QString cli(const QString& sql) {
    QProcess p;
    p.start("sqlite3", {path_, sql});
    EXPECT_TRUE(p.waitForFinished(10000));
    return QString::fromUtf8(p.readAllStandardOutput()).trimmed() + QString::fromUtf8(p.readAllStandardError()).trimmed();
  }

  TempFolders folders_;
  ScriptedMessages messages_;
  Texts texts_;
  QString path_;
};

TEST_F(ConnectingTest, OpensAPlanningInEachMode) {
  for (char mode : {'C', 'U', 'E'}) {
    ConnectResult r = Connecting(path_, mode, messages_, texts_);
    ASSERT_TRUE(r) << mode << " " << r.detail.toStdString();
    EXPECT_EQ(r.connection->mode(), mode);
    EXPECT_EQ(r.connection->db().isReadOnly(), mode == 'C');
    EXPECT_EQ(Recordset::openTable(r.connection->db(), "DataBaseInfo").field("Version").toString(), "5.20");
  }
  EXPECT_TRUE(messages_.shown().empty());
}

TEST_F(ConnectingTest, ConsultationRefusesEveryWrite) {
  ConnectResult r = Connecting(path_, 'C');
  ASSERT_TRUE(r);
  Database& db = r.connection->db();
  EXPECT_THROW(insertRow(db, "Resource", {{"Resource", "Room 1"}}), StorageError);
  EXPECT_THROW(db.exec("DELETE FROM Header"), StorageError);
  Recordset header = Recordset::openTable(db, "Header");
  header.setField("IdTop", 1);
  EXPECT_THROW(header.update(), StorageError);
  EXPECT_EQ(cli("SELECT count(*) FROM Resource; SELECT IdTop FROM Header;"), "0\n200");
}

TEST_F(ConnectingTest, AnotherWorkstationSeesACommittedChangeAtItsNextRead) {
  ConnectResult writer = Connecting(path_, 'U');
  ConnectResult reader = Connecting(path_, 'C');
  ASSERT_TRUE(writer && reader);
  Recordset seen = Recordset::openTable(reader.connection->db(), "Resource");
  EXPECT_EQ(seen.recordCount(), 0);

  Recordset rs = Recordset::openTable(writer.connection->db(), "Resource");
  rs.addNew();
  rs.setField("Resource", "Room 1");
  rs.update();
  // Another process reads it at once: nothing waits in a cache.
  EXPECT_EQ(cli("SELECT Resource FROM Resource;"), "Room 1");
  seen.requery();
  EXPECT_EQ(seen.recordCount(), 1);

  // And a change by another process reaches our consultation at its next read.
  EXPECT_EQ(cli("INSERT INTO Resource (Resource) VALUES ('Room 2');"), "");
  seen.requery();
  EXPECT_EQ(seen.recordCount(), 2);
}

TEST_F(ConnectingTest, TheRosterListsTheConnectionForItsLifeOnly) {
  {
    ConnectResult r = Connecting(path_, 'U');
    ASSERT_TRUE(r);
    EXPECT_EQ(liveConnections(path_).size(), 1);
    ConnectResult c = Connecting(path_, 'C');
    EXPECT_EQ(liveConnections(path_).size(), 1) << "one workstation, listed once";
  }
  EXPECT_TRUE(liveConnections(path_).isEmpty());
  EXPECT_FALSE(rosterIsLive(path_));
}

TEST_F(ConnectingTest, AMissingFileIsAConnectionError) {
  texts_.setOffset(kFrenchOffset);
  ConnectResult r = Connecting(folders_.document("gone.ksv"), 'U', messages_, texts_);
  EXPECT_FALSE(r);
  EXPECT_EQ(r.failure, ConnectFailure::ConnectError);
  EXPECT_EQ(messages_.last().text, QString::fromUtf8("Erreur lors de la connexion à la base de données."));
  EXPECT_FALSE(QFile::exists(folders_.document("gone.ksv")));
}

}  // namespace
