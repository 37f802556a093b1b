// Mail: the address the desktop's mail handler is opened on.
#include <gtest/gtest.h>

#include "net/mail.h"

using namespace ksv;

TEST(Mail, TheUrlIsMailtoFollowedByTheAddress) {
  const QUrl url = mailUrl(QStringLiteral("martin@example.org"));
  EXPECT_TRUE(url.isValid());
  EXPECT_EQ(url.scheme(), "mailto");
  EXPECT_EQ(url.path(), "martin@example.org");
  EXPECT_EQ(url.toString(), "mailto:martin@example.org");
}

TEST(Mail, NothingIsCheckedAnEmptyAddressGivesAnEmptyMessage) {
  const QUrl url = mailUrl(QString());
  EXPECT_TRUE(url.isValid());
  EXPECT_EQ(url.toString(), "mailto:");
  // Whatever was typed goes as it is.
  EXPECT_EQ(mailUrl(QStringLiteral("not an address")).path(), "not an address");
}
