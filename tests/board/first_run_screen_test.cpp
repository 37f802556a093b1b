// The screen step of a first run: Ecran once on a screen the board was drawn
// for; on any other, the warning and Ecran once more.
#include <gtest/gtest.h>

#include "board/screen_description.h"
#include "support/scripted_messages.h"

using namespace ksv;

TEST(FirstRunScreen, EcranOnceUnlessTheScreenIsNoneTheBoardWasDrawnFor) {
  const Texts texts(0);
  const QString warning = texts.get(txt::UnusualScreen);
  struct Case {
    ScreenFacts facts;
    QStringList seen;
  };
  const Case cases[] = {{{1280, 1024, 24, 60, 96}, {"Ecran"}},
                        {{1920, 1080, 24, 60, 96}, {"Ecran", warning, "Ecran"}}};
  for (const Case& c : cases) {
    test::ScriptedMessages messages;
    QStringList seen;
    std::size_t told = 0;
    ScreenDescription screen;
    firstRunScreen(
        screen,
        [&](ScreenDescription& s) {
          for (; told < messages.shown().size(); ++told) seen << messages.shown()[told].text;
          readScreen(c.facts, s);
          seen << "Ecran";
        },
        messages, texts);
    EXPECT_EQ(seen, c.seen) << c.facts.widthPx;
    EXPECT_EQ(messages.shown().size(), c.seen.size() == 1 ? 0u : 1u);
  }
}
