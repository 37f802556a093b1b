#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "config/cp1252.h"
#include "config/ini_file.h"
#include "support/file_bytes.h"

using namespace ksv;
using test::writeBytes;

namespace {

QByteArray bytesOf(const QString& path) { return test::readBytes(path); }

class IniFileTest : public ::testing::Test {
 protected:
  QTemporaryDir dir;
  QString path = dir.filePath("Kestrovane.ini");
  IniFile ini{path};
};

}  // namespace

TEST_F(IniFileTest, MissingFileReadsEmptyAndTheFirstWriteCreatesIt) {
  EXPECT_FALSE(ini.exists());
  EXPECT_EQ(ini.GetValue("Remember", "Language"), "");
  EXPECT_EQ(ini.GetValue("Remember", "Language", "dflt"), "dflt");
  EXPECT_TRUE(ini.DeleteKey("Remember", "Language"));
  EXPECT_FALSE(ini.exists()) << "deleting from a missing file creates nothing";
  ASSERT_TRUE(ini.SetValue("Remember", "Language", "Fr"));
  EXPECT_EQ(bytesOf(path), "[Remember]\r\nLanguage=Fr\r\n");
}

TEST_F(IniFileTest, SectionsAndKeysIgnoreCaseAndEveryCallSeesTheFile) {
  writeBytes(path, "[REMEMBER]\r\nlanguage = En \r\n[Other]\r\nLanguage=Xx\r\n");
  IniFile second(path);
  EXPECT_EQ(ini.GetValue("Remember", "LANGUAGE"), "En") << "blanks around key and value are not part of them";
  ASSERT_TRUE(second.SetValue("remember", "Language", "Fr"));
  EXPECT_EQ(ini.GetValue("Remember", "Language"), "Fr") << "no copy of the file is kept";
  EXPECT_EQ(ini.GetValue("Other", "Language"), "Xx");
  // A present key with nothing after '=' is empty, not absent.
  ASSERT_TRUE(ini.SetValue("Other", "Blank", ""));
  EXPECT_EQ(ini.GetValue("Other", "Blank", "dflt"), "");
  EXPECT_TRUE(ini.hasKey("OTHER", "blank"));
  ASSERT_TRUE(ini.DeleteKey("OTHER", "BLANK"));
  EXPECT_EQ(ini.GetValue("Other", "Blank", "dflt"), "dflt");
}

TEST_F(IniFileTest, WritesKeepCommentsUnknownKeysAndOrder) {
  writeBytes(path,
             "; kept by hand\r\n[Remember]\r\nLastFile=/a.ksv\r\nMine=1\r\n\r\n"
             "[Security]\r\n;note\r\nLockMode=N\r\n");
  ASSERT_TRUE(ini.SetValue("Remember", "LastFile", "/b.ksv"));
  ASSERT_TRUE(ini.SetValue("Remember", "Border", "O"));
  ASSERT_TRUE(ini.SetValue("Company", "Symbol", "€"));
  ASSERT_TRUE(ini.DeleteKey("Security", "LockMode"));
  EXPECT_EQ(bytesOf(path),
            "; kept by hand\r\n[Remember]\r\nLastFile=/b.ksv\r\nMine=1\r\nBorder=O\r\n\r\n"
            "[Security]\r\n;note\r\n[Company]\r\nSymbol=\x80\r\n");
  EXPECT_EQ(ini.keys("remember"), (QStringList{"LastFile", "Mine", "Border"}));
}

TEST_F(IniFileTest, ValuesAreCutAt2048CharactersOnReadingOnly) {
  const QString exact(2048, 'a');
  const QString longer = QString(2048, 'b') + "tail";
  ASSERT_TRUE(ini.SetValue("Company", "Exact", exact));
  ASSERT_TRUE(ini.SetValue("Company", "Long", longer));
  EXPECT_EQ(ini.GetValue("Company", "Exact"), exact);
  EXPECT_EQ(ini.GetValue("Company", "Long"), QString(2048, 'b'));
  EXPECT_TRUE(ini.readText().contains(longer)) << "the file keeps the whole value";
}

TEST_F(IniFileTest, AWindowsFileReadsAndIsWrittenBackIn1252) {
  // CRLF, Windows-1252 (é = E9, € = 80, ’ = 92), a BOM-less file as Windows writes it.
  writeBytes(path, "[Company]\r\nId3=Reservation software      Logiciel de r\xE9servation\r\n"
                   "Symbol=\x80\r\nPlace=L\x92H\xF4tel, \r\n");
  EXPECT_EQ(ini.GetValue("Company", "Id3"), QString::fromUtf8("Reservation software      Logiciel de réservation"));
  EXPECT_EQ(ini.GetValue("Company", "Symbol"), QString::fromUtf8("€"));
  EXPECT_EQ(ini.GetValue("Company", "Place"), QString::fromUtf8("L’Hôtel,"));
  ASSERT_TRUE(ini.SetValue("Company", "Id1", QString::fromUtf8("Hôtel Œillet")));
  const QByteArray bytes = bytesOf(path);
  EXPECT_TRUE(bytes.contains("Id1=H\xF4tel \x8Cillet\r\n"));
  EXPECT_TRUE(bytes.contains("de r\xE9servation\r\n")) << "untouched lines keep their bytes";
}

TEST_F(IniFileTest, AFileEditedInUtf8AndUnixLinesReads) {
  writeBytes(path, "[Company]\nPlace=Genève, \nSymbol=CHF\n");
  EXPECT_EQ(ini.GetValue("Company", "Place"), QString::fromUtf8("Genève,"));
  EXPECT_EQ(ini.GetValue("Company", "Symbol"), "CHF");
}

TEST_F(IniFileTest, ALineBreakInAValueCannotSplitTheLine) {
  ASSERT_TRUE(ini.SetValue("Company", "Comment", "first\r\nsecond\nthird"));
  EXPECT_EQ(ini.GetValue("Company", "Comment"), "first second third");
  EXPECT_EQ(ini.keys("Company"), QStringList{"Comment"});
}

TEST(Cp1252, EveryCodeRoundTripsAndForeignCharactersBecomeQuestionMarks) {
  QByteArray all;
  for (int b = 1; b < 256; ++b) all += char(b);
  EXPECT_EQ(toCp1252(fromCp1252(all)), all);
  EXPECT_EQ(fromCp1252("\x80\x9F\xFF"), QString::fromUtf8("€Ÿÿ"));
  EXPECT_EQ(toCp1252(QString::fromUtf8("a→b€")), QByteArray("a?b\x80"));
}
