// Mail: the address the desktop's mail handler is opened on.
#include <gtest/gtest.h>

#include "net/mail.h"

using namespace ksv;

TEST(Mail, TheTypedTextGoesAfterMailtoUncheckedAndEmptyGivesAnEmptyMessage) {
  EXPECT_EQ(mailUrl(QStringLiteral("martin@example.org")).toString(), "mailto:martin@example.org");
  EXPECT_EQ(mailUrl(QStringLiteral("not an address")).path(), "not an address");
  const QUrl empty = mailUrl(QString());
  EXPECT_TRUE(empty.isValid());
  EXPECT_EQ(empty.toString(), "mailto:");
}
