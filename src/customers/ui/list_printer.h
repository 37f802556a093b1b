#pragma once
// Puts a PrintedList on paper: a heading, the column titles, then the rows,
// in "Arial" (or "Courier New" for a list that asks for it), page after page.
// Several lists go one after the other in one document.

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
bool paintLists(const QList<PrintedList>& lists, QPagedPaintDevice& device);
// Writes the lists into a PDF file.
bool printListToPdf(const PrintedList& list, const QString& path);
bool printListsToPdf(const QList<PrintedList>& lists, const QString& path);
// Asks for a printer (a PDF file may be chosen there) and prints; a failure is
// told through `messages`, with the text `failure` for printLists.
void printList(const PrintedList& list, QWidget* parent, Messages& messages, const Texts& texts);
void printLists(const QList<PrintedList>& lists, QWidget* parent, Messages& messages, const Texts& texts, int failure);

}  // namespace ksv
