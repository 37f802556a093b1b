#include "number_text.h"

#include <cfenv>
#include <cmath>
#include <cstdio>

#include <QRegularExpression>

namespace ksv {
namespace {

// A non-negative decimal: its digits, and how many of them stand before the point.
struct Digits {
  QString digits;
  int whole = 0;
};

Digits digitsOf(double magnitude) {
  if (magnitude == 0.0) return {QStringLiteral("0"), 1};
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.14e", magnitude);  // d.dddddddddddddde±XX
  const QString s = QString::fromLatin1(buf);
  const int e = s.indexOf(QLatin1Char('e'));
  Digits d;
  d.digits = s.left(e).remove(QLatin1Char('.'));
  d.whole = s.mid(e + 1).toInt() + 1;
  return d;
}

Digits digitsOf(Currency magnitude) {
  QString s = QString::number(magnitude.raw());
  if (s.startsWith(QLatin1Char('-'))) s.remove(0, 1);
  while (s.size() < 5) s.prepend(QLatin1Char('0'));
  return {s, static_cast<int>(s.size()) - 4};
}

// Rounds half away from zero to `decimals` places; returns whole and fraction texts.
void roundDigits(const Digits& in, int decimals, QString& whole, QString& fraction) {
  QString d = in.digits;
  int point = in.whole;
  if (point < 0) {  // leading zeros after the point
    d.prepend(QString(-point, QLatin1Char('0')));
    point = 0;
  }
  while (d.size() < point + decimals + 1) d.append(QLatin1Char('0'));
  const bool up = d.at(point + decimals).unicode() >= '5';
  QString kept = d.left(point + decimals);
  if (up) {
    int i = static_cast<int>(kept.size()) - 1;
    for (; i >= 0; --i) {
      if (kept[i] == QLatin1Char('9')) {
        kept[i] = QLatin1Char('0');
      } else {
        kept[i] = QChar(kept[i].unicode() + 1);
        break;
      }
    }
    if (i < 0) {
      kept.prepend(QLatin1Char('1'));
      ++point;
    }
  }
  whole = kept.left(point);
  fraction = kept.mid(point);
}

struct Pattern {
  bool grouping = false;
  int minWhole = 0;
  int decimals = 0;      // places written at most
  int minDecimals = 0;   // places always written
};

Pattern parsePattern(const QString& pattern) {
  Pattern p;
  const int dot = pattern.indexOf(QLatin1Char('.'));
  const QString wholePart = dot < 0 ? pattern : pattern.left(dot);
  const QString fracPart = dot < 0 ? QString() : pattern.mid(dot + 1);
  p.grouping = wholePart.contains(QLatin1Char(','));
  p.minWhole = static_cast<int>(wholePart.count(QLatin1Char('0')));
  for (QChar c : fracPart) {
    if (c == QLatin1Char('0')) {
      ++p.decimals;
      p.minDecimals = p.decimals;
    } else if (c == QLatin1Char('#')) {
      ++p.decimals;
    }
  }
  return p;
}

QString render(bool negative, const Digits& digits, const QString& pattern, const Regional& regional) {
  const Pattern p = parsePattern(pattern);
  QString whole, fraction;
  roundDigits(digits, p.decimals, whole, fraction);
  while (whole.size() > 1 && whole.startsWith(QLatin1Char('0'))) whole.remove(0, 1);
  if (whole == QLatin1String("0") && p.minWhole == 0) whole.clear();
  while (whole.size() < p.minWhole) whole.prepend(QLatin1Char('0'));
  while (fraction.size() > p.minDecimals && fraction.endsWith(QLatin1Char('0'))) fraction.chop(1);
  const bool allZero = !(whole + fraction).contains(QRegularExpression(QStringLiteral("[1-9]")));

  if (p.grouping && whole.size() > 3) {
    QString grouped;
    const int n = static_cast<int>(whole.size());
    for (int i = 0; i < n; ++i) {
      if (i > 0 && (n - i) % 3 == 0) grouped += regional.thousandSymbol;
      grouped += whole[i];
    }
    whole = grouped;
  }
  QString text = whole;
  if (!fraction.isEmpty()) text += regional.decimalSymbol + fraction;
  if (negative && !allZero) text.prepend(QLatin1Char('-'));
  return text;
}

bool isBlank(QChar c) { return c == QLatin1Char(' ') || c == QChar(0xA0) || c == QChar(0x202F) || c == QLatin1Char('\t'); }

// Reads a locale number into sign, digits and exponent; nothing on foreign text.
struct Parsed {
  bool negative = false;
  QString whole;
  QString fraction;
  int exponent = 0;
};

std::optional<Parsed> parseLocale(const QString& input, const Regional& regional, bool allowExponent) {
  QString s = input;
  while (!s.isEmpty() && isBlank(s.front())) s.remove(0, 1);
  while (!s.isEmpty() && isBlank(s.back())) s.chop(1);
  if (s.isEmpty()) return std::nullopt;

  Parsed out;
  bool signSeen = false;
  if (s.startsWith(QLatin1Char('(')) && s.endsWith(QLatin1Char(')'))) {
    out.negative = true;
    signSeen = true;
    s = s.mid(1, s.size() - 2).trimmed();
  }
  if (!s.isEmpty() && (s.front() == QLatin1Char('-') || s.front() == QLatin1Char('+'))) {
    if (signSeen) return std::nullopt;
    out.negative = s.front() == QLatin1Char('-');
    signSeen = true;
    s.remove(0, 1);
    while (!s.isEmpty() && isBlank(s.front())) s.remove(0, 1);  // the "- " form
  }
  if (!s.isEmpty() && (s.back() == QLatin1Char('-') || s.back() == QLatin1Char('+'))) {
    if (signSeen) return std::nullopt;
    out.negative = s.back() == QLatin1Char('-');
    s.chop(1);
    while (!s.isEmpty() && isBlank(s.back())) s.chop(1);
  }

  const QString dec = regional.decimalSymbol.isEmpty() ? QStringLiteral(".") : regional.decimalSymbol;
  const QString thou = regional.thousandSymbol;
  const bool blankThousands = thou.isEmpty() ? false : isBlank(thou.front());

  int i = 0;
  const int n = static_cast<int>(s.size());
  bool inFraction = false;
  while (i < n) {
    const QChar c = s[i];
    if (c.isDigit() && c.unicode() < 128) {
      (inFraction ? out.fraction : out.whole) += c;
      ++i;
    } else if (!inFraction && s.mid(i, dec.size()) == dec) {
      inFraction = true;
      i += static_cast<int>(dec.size());
    } else if (!inFraction && !out.whole.isEmpty() && !thou.isEmpty() &&
               (s.mid(i, thou.size()) == thou || (blankThousands && isBlank(c)))) {
      i += blankThousands && isBlank(c) ? 1 : static_cast<int>(thou.size());
    } else if (allowExponent && (c == QLatin1Char('e') || c == QLatin1Char('E')) &&
               !(out.whole + out.fraction).isEmpty()) {
      const QString rest = s.mid(i + 1);
      bool ok = false;
      out.exponent = rest.toInt(&ok);
      if (!ok || rest.isEmpty() || !(rest[0].isDigit() || rest[0] == QLatin1Char('-') || rest[0] == QLatin1Char('+')))
        return std::nullopt;
      i = n;
    } else {
      return std::nullopt;
    }
  }
  if ((out.whole + out.fraction).isEmpty()) return std::nullopt;
  return out;
}

}  // namespace

QString amountFormat(int decimals) {
  switch (decimals) {
    case 1: return QStringLiteral("#,###,##0.0");
    case 2: return QStringLiteral("#,###,##0.00");
    default: return QStringLiteral("#,###,##0");
  }
}

QString plainAmountFormat(int decimals) {
  switch (decimals) {
    case 0: return QStringLiteral("######0");
    case 1: return QStringLiteral("######0.0");
    case 2: return QStringLiteral("######0.00");
    default: return QString();
  }
}

QString formatNumber(double value, const QString& pattern, const Regional& regional) {
  return render(std::signbit(value), digitsOf(std::fabs(value)), pattern, regional);
}

QString formatNumber(Currency value, const QString& pattern, const Regional& regional) {
  return render(value.raw() < 0, digitsOf(value), pattern, regional);
}

std::optional<Currency> parseCurrency(const QString& text, const Regional& regional) {
  const auto p = parseLocale(text, regional, false);
  if (!p) return std::nullopt;
  // Exact: whole digits, four decimals, and the rest decides half to even.
  QString frac = p->fraction;
  while (frac.size() < 5) frac.append(QLatin1Char('0'));
  QString whole = p->whole.isEmpty() ? QStringLiteral("0") : p->whole;
  while (whole.size() > 1 && whole.startsWith(QLatin1Char('0'))) whole.remove(0, 1);
  if (whole.size() > 15) throw CurrencyOverflow();
  bool ok = false;
  const qint64 units = (whole + frac.left(4)).toLongLong(&ok);
  if (!ok) throw CurrencyOverflow();
  const QString rest = frac.mid(4);
  const QChar first = rest.front();
  const bool beyondHalf = rest.mid(1).contains(QRegularExpression(QStringLiteral("[1-9]")));
  qint64 raw = units;
  if (first.unicode() > '5' || (first == QLatin1Char('5') && (beyondHalf || (units % 2) != 0))) ++raw;
  Currency c = Currency::fromRaw(raw);
  return p->negative ? -c : c;
}

std::optional<double> parseNumber(const QString& text, const Regional& regional) {
  const auto p = parseLocale(text, regional, true);
  if (!p) return std::nullopt;
  const QString c = (p->negative ? QStringLiteral("-") : QString()) + (p->whole.isEmpty() ? QStringLiteral("0") : p->whole) +
                    QLatin1Char('.') + p->fraction + QStringLiteral("e") + QString::number(p->exponent);
  bool ok = false;
  const double v = c.toDouble(&ok);
  if (!ok || !std::isfinite(v)) return std::nullopt;
  return v;
}

bool isNumeric(const QString& text, const Regional& regional) { return parseNumber(text, regional).has_value(); }

double val(const QString& text) {
  QString s;
  for (QChar c : text)
    if (c != QLatin1Char(' ') && c != QLatin1Char('\t') && c != QLatin1Char('\n') && c != QLatin1Char('\r')) s += c;

  if (s.size() >= 2 && s[0] == QLatin1Char('&')) {
    const QChar kind = s[1].toUpper();
    const int base = kind == QLatin1Char('H') ? 16 : kind == QLatin1Char('O') ? 8 : 0;
    if (base != 0) {
      int i = 2;
      qint64 v = 0;
      while (i < s.size()) {
        const int digit = QString(s[i]).toInt(nullptr, base);
        const bool valid = s[i].isDigit() || (base == 16 && QStringLiteral("abcdefABCDEF").contains(s[i]));
        if (!valid || (base == 8 && digit > 7)) break;
        v = v * base + digit;
        ++i;
      }
      return static_cast<double>(v);
    }
  }

  int i = 0;
  const int n = static_cast<int>(s.size());
  QString number;
  if (i < n && (s[i] == QLatin1Char('-') || s[i] == QLatin1Char('+'))) number += s[i++];
  bool digits = false;
  while (i < n && s[i].isDigit() && s[i].unicode() < 128) { number += s[i++]; digits = true; }
  if (i < n && s[i] == QLatin1Char('.')) {
    number += s[i++];
    while (i < n && s[i].isDigit() && s[i].unicode() < 128) { number += s[i++]; digits = true; }
  }
  if (!digits) return 0.0;
  if (i < n && (s[i].toUpper() == QLatin1Char('E') || s[i].toUpper() == QLatin1Char('D'))) {
    QString exp = QStringLiteral("e");
    int j = i + 1;
    if (j < n && (s[j] == QLatin1Char('-') || s[j] == QLatin1Char('+'))) exp += s[j++];
    bool expDigits = false;
    while (j < n && s[j].isDigit() && s[j].unicode() < 128) { exp += s[j++]; expDigits = true; }
    if (expDigits) number += exp;
  }
  return number.toDouble();
}

double roundHalfEven(double value, int decimals) {
  const double scale = std::pow(10.0, decimals);
  const int saved = std::fegetround();
  std::fesetround(FE_TONEAREST);
  const double r = std::nearbyint(value * scale);
  std::fesetround(saved);
  return r / scale;
}

}  // namespace ksv
