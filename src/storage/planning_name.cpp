#include "planning_name.h"

#include <QFileInfo>

#include "core/day_date.h"

namespace ksv {

PlanningName Split_Db_Name(const QString& path) {
  PlanningName n;
  if (path.isEmpty()) return n;
  const qsizetype sep = std::max(path.lastIndexOf(QLatin1Char('/')), path.lastIndexOf(QLatin1Char('\\')));
  n.dir = path.left(sep + 1);
  n.ext = path.right(3);
  const qsizetype stemEnd = path.size() - 4;  // less the point before the extension
  n.stem = stemEnd > sep ? path.mid(sep + 1, stemEnd - sep - 1) : QString();
  return n;
}

bool refuseDiskette(const QString& chosen, Messages& messages, const Texts& texts) {
  if (!chosen.contains(QLatin1String("A:"), Qt::CaseInsensitive)) return false;
  messages.critical(texts.get(txt::NotOnDiskette));
  return true;
}

QString checkChosenPlanning(const QString& chosen, const QString& openFile, Messages& messages, const Texts& texts) {
  if (chosen.isEmpty() || refuseDiskette(chosen, messages, texts)) return {};
  const PlanningName n = Split_Db_Name(chosen);
  if (n.ext.compare(QLatin1String("ksv"), Qt::CaseInsensitive) != 0) {
    messages.critical(texts.withName(txt::NotAPlanning, chosen));
    return {};
  }
  if (chosen == openFile) return chosen;
  if (!QFileInfo::exists(chosen)) {
    messages.critical(texts.withName(txt::PlanningMissing, chosen));
    return {};
  }
  return chosen;
}

QString suggestedCopyName(const PlanningName& planning, const QString& suffix, QDate today, const Regional& regional) {
  QString date = shortDateText(today, regional);
  date.remove(QLatin1Char('/'));
  return planning.dir + planning.stem + suffix + date + QStringLiteral(".ksv");
}

QDate purgeLimit(QDate today, int yearKeep) {
  const QDate back = today.addYears(-yearKeep);
  return QDate(back.year(), back.month(), 1);
}

int exampleShiftDays(QDate today) { return daysBetween(kExampleDay, today); }

}  // namespace ksv
