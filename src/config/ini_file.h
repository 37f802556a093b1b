#pragma once
// The workstation's option file: sections of key=value lines in 8-bit text.
// Every call reads or writes the file itself; nothing is cached, so a value
// written on one line is read back on the next, and two objects on the same
// path always agree. Sections and keys are found without regard to case.

#include <QAnyStringView>
#include <QString>
#include <QStringList>

namespace ksv {

class IniFile {
 public:
  // A read asks for at most this many characters of a value.
  static constexpr int kMaxValueLength = 2048;

  explicit IniFile(QString path) : path_(std::move(path)) {}
  const QString& path() const { return path_; }
  bool exists() const;

  // The stored text of the key, cut at kMaxValueLength, or `defaultValue`
  // when the key (or the file) is absent. A key present with nothing after
  // '=' reads as the empty string.
  QString GetValue(QAnyStringView section, QAnyStringView key, const QString& defaultValue = QString()) const;
  // Writes the key at once, creating the file and the section when needed.
  // Other lines, comments and unknown keys are kept as they are. A line
  // break inside the value would split the line, so it is written as a blank.
  bool SetValue(QAnyStringView section, QAnyStringView key, const QString& value);
  // Removes the key; an absent key or file is no error.
  bool DeleteKey(QAnyStringView section, QAnyStringView key);

  bool hasKey(QAnyStringView section, QAnyStringView key) const;

  // The keys of a section in file order, as they are spelled there.
  QStringList keys(QAnyStringView section) const;

  // The whole file as text (empty when missing), and its replacement.
  QString readText() const;
  bool writeText(const QString& text);

 private:
  QStringList readLines() const;
  bool writeLines(const QStringList& lines);

  QString path_;
};

}  // namespace ksv
