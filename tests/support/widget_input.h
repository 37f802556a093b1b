#pragma once
// Driving widgets as a user does, for the widget tests: keys typed, a left
// click at a point, a named child, a grid column read back.

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStringList>
#include <QTableWidget>

namespace ksv::test {

inline void typeInto(QWidget* w, const QString& text) {
  for (const QChar c : text) {
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
    QApplication::sendEvent(w, &press);
  }
}

inline void clickAt(QWidget* w, QPointF at) {
  QMouseEvent down(QEvent::MouseButtonPress, at, w->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(w, &down);
  QMouseEvent up(QEvent::MouseButtonRelease, at, w->mapToGlobal(at), Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(w, &up);
}

template <typename W>
W* child(QWidget& parent, const char* name) {
  W* w = parent.findChild<W*>(QString::fromLatin1(name));
  EXPECT_NE(w, nullptr) << name;
  return w;
}

inline QStringList column(QTableWidget* grid, int c) {
  QStringList out;
  for (int r = 0; r < grid->rowCount(); ++r) out << grid->item(r, c)->text();
  return out;
}

}  // namespace ksv::test
