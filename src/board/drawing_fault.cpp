#include "drawing_fault.h"

#include <QFile>
#include <QTextStream>

#include "core/texts.h"

namespace ksv {

QString drawingFaultText(const DrawingFault& fault, const Texts& texts) {
  const QString sep = QStringLiteral(" : ");
  const QString between = QStringLiteral(" - ");
  const QString line = texts.get(txt::DrawFaultResource) + sep + fault.resource + between +
                       texts.get(txt::DrawFaultFrom) + sep + fault.from + between + texts.get(txt::DrawFaultTo) +
                       sep + fault.to + between + texts.get(txt::DrawFaultCustomer) + sep + fault.customer;
  return texts.get(txt::DrawFaultIntro) + line + QStringLiteral("\r\n") + texts.get(fault.replacedText) +
         QLatin1Char(' ') + fault.replacement + texts.get(txt::DrawFaultNoted);
}

bool appendToNotes(const QString& notesFile, const QString& text, QDate date) {
  QFile file(notesFile);
  if (!file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text)) return false;
  const QString dashes(40, QLatin1Char('-'));
  QString body = text;
  // The message box wants CR LF; the notes are an ordinary text file.
  body.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  QTextStream out(&file);
  out << date.toString(Qt::ISODate) << QLatin1Char(' ') << dashes << '\n' << body << '\n' << dashes << '\n';
  return out.status() == QTextStream::Ok;
}

}  // namespace ksv
