#include <gtest/gtest.h>

#include <QTextStream>

#include "core/printing_messages.h"

using namespace ksv;

TEST(PrintingMessages, PrintsEachBoxAndAnswersWithThePreselectedButton) {
  QString text;
  QTextStream stream(&text);
  const Texts en(0);
  PrintingMessages messages(stream, en);

  messages.information("Purge successful");
  EXPECT_FALSE(messages.askYesNo("This file exists already\r\n\r\nDo you want to replace it ?", MsgAnswer::No));
  EXPECT_EQ(messages.askYesNoCancel("Keep it ?", MsgAnswer::Cancel), MsgAnswer::Cancel);
  EXPECT_EQ(messages.show("Go on ?", MsgButtons::YesNo, MsgIcon::Question), MsgAnswer::Yes) << "first button";
  messages.critical("Error while copying the data base");
  EXPECT_EQ(text,
            "Purge successful\n"
            "This file exists already\nDo you want to replace it ? No\n"
            "Keep it ? Cancel\n"
            "Go on ? Yes\n"
            "Error while copying the data base\n");
  EXPECT_EQ(messages.criticalCount(), 1);

  text.clear();
  const Texts fr(kFrenchOffset);
  PrintingMessages french(stream, fr);
  french.askYesNo("Voulez-vous le remplacer ?", MsgAnswer::No);
  EXPECT_EQ(text, "Voulez-vous le remplacer ? Non\n");
}
