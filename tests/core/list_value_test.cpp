#include <gtest/gtest.h>

#include "core/list_value.h"

using namespace ksv;

TEST(ListValue, ReadsExactlyTheTargetSize) {
  EXPECT_EQ(splitList("a\\b\\c\\", 3), (QStringList{"a", "b", "c"}));
  EXPECT_EQ(splitList("a\\b\\", 4), (QStringList{"a", "b", "", ""}));         // fewer: rest empty
  EXPECT_EQ(splitList("a\\b\\c\\d\\e\\", 3), (QStringList{"a", "b", "c"}));   // more: dropped
  EXPECT_EQ(splitList("\\\\\\\\\\\\", 6), QStringList(6, QString()));        // six empty items
  EXPECT_EQ(splitList("", 2), (QStringList{"", ""}));
  EXPECT_EQ(splitList("a\\tail", 2), (QStringList{"a", ""}));  // an unterminated tail is no item
}

TEST(ListValue, JoinTerminatesEveryItem) {
  EXPECT_EQ(joinList({"Information", "Reservation", ""}), "Information\\Reservation\\\\");
  EXPECT_EQ(joinList({}), "");
  const QStringList items{"16761087", "16744703", "13434879", "8454143", "62708"};
  EXPECT_EQ(splitList(joinList(items), 5), items);
}

TEST(FlagString, OneLetterPerPosition) {
  const QString flags = "OONNO";
  EXPECT_TRUE(flagIs(flags, 0));
  EXPECT_FALSE(flagIs(flags, 2));
  EXPECT_TRUE(flagIs(flags, 4));
  EXPECT_FALSE(flagIs(flags, 5));  // past the end is never set
  EXPECT_EQ(flagAt(flags, 9), "");
  EXPECT_EQ(withFlag(flags, 2, 'O'), "OOONO");
  EXPECT_EQ(withFlag("O", 3, 'O'), "ONNO");
}
