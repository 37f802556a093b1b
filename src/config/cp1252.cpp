#include "cp1252.h"

#include <QStringDecoder>

namespace ksv {
namespace {

// 0x80..0x9F; the holes (0x81, 0x8D, 0x8F, 0x90, 0x9D) keep their own value.
constexpr char16_t kHigh[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

char encodeOne(char16_t c) {
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(c);
  for (int i = 0; i < 32; ++i)
    if (kHigh[i] == c) return static_cast<char>(0x80 + i);
  return '?';
}

}  // namespace

QString fromCp1252(const QByteArray& bytes) {
  QString out;
  out.reserve(bytes.size());
  for (const char b : bytes) {
    const auto u = static_cast<unsigned char>(b);
    out += QChar(u >= 0x80 && u < 0xA0 ? kHigh[u - 0x80] : char16_t(u));
  }
  return out;
}

QByteArray toCp1252(const QString& text) {
  QByteArray out;
  out.reserve(text.size());
  for (const QChar c : text) out += encodeOne(c.unicode());
  return out;
}

QString decodeIniText(const QByteArray& bytes) {
  if (bytes.startsWith("\xEF\xBB\xBF")) return QString::fromUtf8(bytes.mid(3));
  bool multiByte = false;
  for (const char b : bytes)
    if (static_cast<unsigned char>(b) >= 0x80) {
      multiByte = true;
      break;
    }
  if (multiByte) {
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = utf8(bytes);
    if (!utf8.hasError()) return text;
  }
  return fromCp1252(bytes);
}

}  // namespace ksv
