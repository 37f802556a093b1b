#pragma once
// Whole-file reads and writes, for tests that plant or inspect files.

#include <gtest/gtest.h>

#include <QByteArray>
#include <QFile>
#include <QString>

namespace ksv::test {

inline QByteArray readBytes(const QString& path) {
  QFile f(path);
  return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

inline void writeBytes(const QString& path, const QByteArray& bytes) {
  QFile f(path);
  ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate)) << path.toStdString();
  f.write(bytes);
}

}  // namespace ksv::test
