#include "access_code.h"

#include "config/cp1252.h"
#include "config/ini_file.h"

namespace ksv {
namespace {

QByteArray combine(const QByteArray& key, const QByteArray& data) {
  QByteArray out = data;
  if (key.isEmpty()) return out;
  for (qsizetype i = 0; i < out.size(); ++i) out[i] = static_cast<char>(out[i] ^ key[i % key.size()]);
  return out;
}

int hexDigit(QChar c) {
  const char16_t u = c.unicode();
  if (u >= '0' && u <= '9') return u - '0';
  if (u >= 'A' && u <= 'F') return u - 'A' + 10;
  if (u >= 'a' && u <= 'f') return u - 'a' + 10;
  return -1;
}

}  // namespace

QString Scramble(const QString& key, const QString& text) {
  const QByteArray mixed = combine(toCp1252(key), toCp1252(text));
  return QString::fromLatin1(mixed.toHex().toUpper());
}

QString Unscramble(const QString& key, const QString& hex) {
  if (hex.isEmpty()) return QString();
  QByteArray bytes;
  for (qsizetype i = 0; i + 1 < hex.size(); i += 2) {
    const int hi = hexDigit(hex[i]), lo = hexDigit(hex[i + 1]);
    if (hi < 0 || lo < 0) return QString();
    bytes += static_cast<char>(hi * 16 + lo);
  }
  if (hex.size() % 2 == 1 && hexDigit(hex.back()) < 0) return QString();
  return fromCp1252(combine(toCp1252(key), bytes));
}

QString scrambledNilPin(const QString& key) { return Scramble(key, QString::fromLatin1(kNilPin)); }

QString storedCode(const QString& key, const QString& plain) {
  return Scramble(key, plain.isEmpty() ? QString::fromLatin1(kNilPin) : plain);
}

QString readAccessCode(const IniFile& ini, AccessCode which) {
  const bool planning = which == AccessCode::Planning;
  const QString stored = ini.GetValue("Security", planning ? "AccesPlanning" : "AccesOptions");
  return Unscramble(QString::fromLatin1(planning ? kKeyAccesPlanning : kKeyAccesOptions), stored);
}

bool codeIsSet(const QString& decoded) { return !decoded.isEmpty() && decoded != QLatin1String(kNilPin); }

}  // namespace ksv
