#pragma once
// Puts a PrintedList on paper: a heading, the column titles, then the rows,
// in "Arial", page after page.

#include <QList>
#include <QString>

#include "customers/printed_list.h"

class QPagedPaintDevice;
class QWidget;

namespace ksv {

class Messages;
class Texts;

// Lays the list out on `device` (a printer or a PDF writer). False when the
// device cannot be painted on.
bool paintList(const PrintedList& list, QPagedPaintDevice& device);
// Several lists on one device, each from a new page.
bool paintLists(const QList<PrintedList>& lists, QPagedPaintDevice& device);
// Writes the list into a PDF file.
bool printListToPdf(const PrintedList& list, const QString& path);
// Asks for a printer (a PDF file may be chosen there) and prints; a failure is
// told through `messages`.
void printList(const PrintedList& list, QWidget* parent, Messages& messages, const Texts& texts);
// The same for several lists, each from a new page; `failedText` tells a failure.
void printLists(const QList<PrintedList>& lists, QWidget* parent, Messages& messages, const Texts& texts,
                int failedText);

}  // namespace ksv
