#include "ini_file.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include "cp1252.h"

namespace ksv {
namespace {

// A line that opens a section gives its name; any other line gives nothing.
bool sectionName(const QString& line, QString* name) {
  const QString t = line.trimmed();
  if (!t.startsWith(QLatin1Char('['))) return false;
  const qsizetype close = t.indexOf(QLatin1Char(']'));
  *name = (close < 0 ? t.mid(1) : t.mid(1, close - 1)).trimmed();
  return true;
}

// A key line gives its key and value, both trimmed; comments give nothing.
bool keyLine(const QString& line, QString* key, QString* value) {
  const QString t = line.trimmed();
  if (t.startsWith(QLatin1Char(';'))) return false;
  const qsizetype eq = t.indexOf(QLatin1Char('='));
  if (eq <= 0) return false;
  *key = t.left(eq).trimmed();
  if (value) *value = t.mid(eq + 1).trimmed();
  return !key->isEmpty();
}

bool same(const QString& a, QAnyStringView b) { return QAnyStringView::compare(a, b, Qt::CaseInsensitive) == 0; }

// Lines [begin, end) of the first section of that name; begin is the line
// after the heading. Missing: begin = -1.
struct Range {
  qsizetype heading = -1;
  qsizetype begin = -1;
  qsizetype end = -1;
};

Range findSection(const QStringList& lines, QAnyStringView section) {
  Range r;
  QString name;
  for (qsizetype i = 0; i < lines.size(); ++i) {
    if (!sectionName(lines[i], &name)) continue;
    if (r.begin >= 0) {
      r.end = i;
      return r;
    }
    if (same(name, section)) {
      r.heading = i;
      r.begin = i + 1;
    }
  }
  if (r.begin >= 0) r.end = lines.size();
  return r;
}

qsizetype findKey(const QStringList& lines, const Range& r, QAnyStringView key) {
  QString k;
  for (qsizetype i = r.begin; i >= 0 && i < r.end; ++i)
    if (keyLine(lines[i], &k, nullptr) && same(k, key)) return i;
  return -1;
}

}  // namespace

bool IniFile::exists() const { return QFileInfo::exists(path_); }

QStringList IniFile::readLines() const {
  const QString text = readText();
  if (text.isEmpty()) return {};
  QStringList lines = text.split(QLatin1Char('\n'));
  for (QString& l : lines)
    if (l.endsWith(QLatin1Char('\r'))) l.chop(1);
  if (!lines.isEmpty() && lines.last().isEmpty()) lines.removeLast();  // the final line break
  return lines;
}

bool IniFile::writeLines(const QStringList& lines) {
  QString text;
  for (const QString& l : lines) text += l + QStringLiteral("\r\n");
  return writeText(text);
}

QString IniFile::readText() const {
  QFile f(path_);
  if (!f.open(QIODevice::ReadOnly)) return QString();
  return decodeIniText(f.readAll());
}

bool IniFile::writeText(const QString& text) {
  // Written aside and moved into place, so a crash never leaves half a file.
  QSaveFile f(path_);
  if (!f.open(QIODevice::WriteOnly)) return false;
  const QByteArray bytes = toCp1252(text);
  if (f.write(bytes) != bytes.size()) {
    f.cancelWriting();
    return false;
  }
  return f.commit();
}

QString IniFile::GetValue(QAnyStringView section, QAnyStringView key, const QString& defaultValue) const {
  const QStringList lines = readLines();
  const Range r = findSection(lines, section);
  const qsizetype at = findKey(lines, r, key);
  if (at < 0) return defaultValue;
  QString k, v;
  keyLine(lines[at], &k, &v);
  return v.left(kMaxValueLength);
}

bool IniFile::SetValue(QAnyStringView section, QAnyStringView key, const QString& value) {
  QString clean = value;
  clean.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
  clean.replace(QLatin1Char('\r'), QLatin1Char(' ')).replace(QLatin1Char('\n'), QLatin1Char(' '));
  const QString line = key.toString() + QLatin1Char('=') + clean;

  QStringList lines = readLines();
  const Range r = findSection(lines, section);
  if (r.begin < 0) {
    lines << QLatin1Char('[') + section.toString() + QLatin1Char(']') << line;
    return writeLines(lines);
  }
  const qsizetype at = findKey(lines, r, key);
  if (at >= 0) {
    lines[at] = line;
  } else {
    // After the last non-blank line of the section, before its trailing blanks.
    qsizetype pos = r.end;
    while (pos > r.begin && lines[pos - 1].trimmed().isEmpty()) --pos;
    lines.insert(pos, line);
  }
  return writeLines(lines);
}

bool IniFile::DeleteKey(QAnyStringView section, QAnyStringView key) {
  QStringList lines = readLines();
  const qsizetype at = findKey(lines, findSection(lines, section), key);
  if (at < 0) return true;
  lines.removeAt(at);
  return writeLines(lines);
}

bool IniFile::hasKey(QAnyStringView section, QAnyStringView key) const {
  const QStringList lines = readLines();
  return findKey(lines, findSection(lines, section), key) >= 0;
}

QStringList IniFile::keys(QAnyStringView section) const {
  const QStringList lines = readLines();
  const Range r = findSection(lines, section);
  QStringList out;
  QString k;
  for (qsizetype i = r.begin; i >= 0 && i < r.end; ++i)
    if (keyLine(lines[i], &k, nullptr)) out << k;
  return out;
}

}  // namespace ksv
