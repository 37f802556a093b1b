#include "list_printer.h"

#include <QFont>
#include <QFontMetrics>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>

#include "core/messages.h"
#include "core/texts.h"

namespace ksv {

bool paintList(const PrintedList& list, QPagedPaintDevice& device) { return paintLists({list}, device); }

bool paintLists(const QList<PrintedList>& lists, QPagedPaintDevice& device) {
  QPainter painter;
  if (!painter.begin(&device)) return false;
  const QRect page = painter.viewport();
  const int dpi = device.logicalDpiY() > 0 ? device.logicalDpiY() : 96;
  const int margin = dpi / 2;
  const QRect area = page.adjusted(margin, margin, -margin, -margin);

  const QFont arial(QStringLiteral("Arial"), 10);
  QFont bold = arial;
  bold.setBold(true);
  QFont title(QStringLiteral("Arial"), 14, QFont::Bold);
  QFont courier(QStringLiteral("Courier New"), 10);
  courier.setStyleHint(QFont::Monospace);
  QFont courierBold = courier;
  courierBold.setBold(true);

  int y = area.top();
  for (qsizetype l = 0; l < lists.size(); ++l) {
    const PrintedList& list = lists[l];
    const QFont& body = list.fixedPitch ? courier : arial;
    const QFont& boldBody = list.fixedPitch ? courierBold : bold;
    int totalWeight = 0;
    for (int w : list.widths) totalWeight += w;
    if (totalWeight <= 0) totalWeight = 1;
    QList<int> lefts, widths;
    int x = area.left();
    for (int i = 0; i < list.titles.size(); ++i) {
      const int w = area.width() * list.widths.value(i, 1) / totalWeight;
      lefts << x;
      widths << w - dpi / 10;
      x += w;
    }

    auto header = [&] {
      if (!list.heading.isEmpty()) {
        painter.setFont(title);
        const int h = QFontMetrics(title, &device).height();
        painter.drawText(QRect(area.left(), y, area.width(), h), Qt::AlignLeft, list.heading);
        y += h + dpi / 8;
      }
      painter.setFont(bold);
      const int th = QFontMetrics(bold, &device).height();
      for (int i = 0; i < list.titles.size(); ++i)
        painter.drawText(QRect(lefts[i], y, widths[i], th), Qt::AlignLeft, list.titles[i]);
      y += th;
      painter.drawLine(area.left(), y, area.right(), y);
      y += dpi / 16;
      painter.setFont(body);
    };
    // A list that follows another starts below it, on a new page when it asks
    // for one or when its heading and first row would not fit.
    if (l > 0) {
      y += dpi / 3;
      if (list.ownPage || y + 4 * QFontMetrics(title, &device).height() > area.bottom()) {
        device.newPage();
        y = area.top();
      }
    }
    header();
    for (qsizetype r = 0; r < list.rows.size(); ++r) {
      const QStringList& row = list.rows[r];
      const bool headingRow = list.headingRows.contains(int(r));
      const QFont& font = headingRow ? boldBody : body;
      painter.setFont(font);
      const QFontMetrics metrics(font, &device);
      // Each cell's width: up to the next filled cell, or the right margin.
      QList<int> cellWidths;
      for (int i = 0; i < row.size() && i < widths.size(); ++i) {
        int next = i + 1;
        while (next < row.size() && next < widths.size() && row[next].isEmpty()) ++next;
        cellWidths << (next >= row.size() || next >= widths.size() ? area.right() - lefts[i]
                                                                    : lefts[next] - lefts[i] - dpi / 10);
      }
      int height = metrics.height();
      for (int i = 0; i < cellWidths.size(); ++i)
        height = std::max(height, metrics.boundingRect(QRect(0, 0, cellWidths[i], 100000), Qt::TextWordWrap, row[i]).height());
      if (headingRow) y += dpi / 8;
      if (y + height > area.bottom()) {
        device.newPage();
        y = area.top();
        header();
        painter.setFont(font);
      }
      for (int i = 0; i < cellWidths.size(); ++i)
        painter.drawText(QRect(lefts[i], y, cellWidths[i], height), Qt::TextWordWrap | Qt::AlignLeft, row[i]);
      y += height + dpi / 20;
    }
  }
  return painter.end();
}

bool printListToPdf(const PrintedList& list, const QString& path) { return printListsToPdf({list}, path); }

bool printListsToPdf(const QList<PrintedList>& lists, const QString& path) {
  QPdfWriter writer(path);
  writer.setResolution(300);
  writer.setPageSize(QPageSize(QPageSize::A4));
  if (!lists.isEmpty()) writer.setTitle(lists.first().heading);
  return paintLists(lists, writer);
}

void printList(const PrintedList& list, QWidget* parent, Messages& messages, const Texts& texts) {
  printLists({list}, parent, messages, texts, txt::CustomerPrintFailed);
}

void printLists(const QList<PrintedList>& lists, QWidget* parent, Messages& messages, const Texts& texts, int failure) {
  QPrinter printer(QPrinter::HighResolution);
  // The document name proposes the PDF file's name: a date's slashes would make folders of it.
  if (!lists.isEmpty()) printer.setDocName(QString(lists.first().heading).replace(QLatin1Char('/'), QLatin1Char('-')));
  QPrintDialog dialog(&printer, parent);
  if (dialog.exec() != QDialog::Accepted) return;
  if (!paintLists(lists, printer)) messages.critical(texts.get(failure));
}

}  // namespace ksv
