#include <gtest/gtest.h>

#include <set>

#include "core/texts.h"

using namespace ksv;

TEST(TextTable, EveryEntryHasBothLanguagesAndTheSameBars) {
  std::set<int> seen;
  for (const TextEntry& e : Texts::table()) {
    SCOPED_TRACE(e.number);
    EXPECT_TRUE(seen.insert(e.number).second) << "entry number used twice";
    EXPECT_GT(e.number, 0);
    EXPECT_LT(e.number, kFrenchOffset);
    const QString en = QString::fromUtf8(e.english), fr = QString::fromUtf8(e.french);
    EXPECT_FALSE(en.isEmpty());
    EXPECT_FALSE(fr.isEmpty());
    EXPECT_EQ(en.count('|'), fr.count('|'));
    EXPECT_EQ(en.count('\\'), fr.count('\\')) << "list entries keep their item count";
  }
}

TEST(TextTable, OffsetSelectsTheLanguage) {
  Texts texts(textOffset(Language::En));
  EXPECT_EQ(texts.get(txt::AlreadyRunning), "Kestrovane is already running");
  texts.setOffset(textOffset(Language::Fr));
  EXPECT_EQ(texts.language(), Language::Fr);
  EXPECT_EQ(texts.get(txt::ButtonYes), "&Oui");
  EXPECT_EQ(Texts::entry(1000 + txt::ButtonYes), "&Oui");
  EXPECT_EQ(Texts::entry(txt::ButtonYes), "&Yes");
  EXPECT_EQ(texts.get(999), "");  // no such entry
}

TEST(TextTable, ListsAndNames) {
  const Texts en(0), fr(kFrenchOffset);
  EXPECT_EQ(en.list(txt::DayNames, 7).front(), "Sunday");
  EXPECT_EQ(fr.list(txt::MonthNamesUpper, 12).at(7), "AOÛT");
  EXPECT_EQ(en.list(txt::MonthNames, 12).size(), 12);
  EXPECT_EQ(en.get(txt::DayLetters), "SMTWTFS");
  EXPECT_EQ(en.withName(txt::PlanningExists, "C:/Hotel.ksv"), "The Planning - C:/Hotel.ksv - exists already");
  EXPECT_EQ(fr.withName(txt::NotAPlanning, "x.txt"), "Le fichier - x.txt - n'est pas un planning");
}

TEST(NameInText, ReplacesTheBarOnly) {
  EXPECT_EQ(withName("~Before | conversion.ksv", "4.0"), "~Before 4.0 conversion.ksv");
  EXPECT_EQ(withName("no bar", "x"), "no bar");
  EXPECT_EQ(withName("|", ""), "");
  EXPECT_EQ(withName("a|b|c", "X"), "aXb|c");
}
