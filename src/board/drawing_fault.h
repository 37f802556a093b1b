#pragma once
// A booking row the board can't draw as stored: a resource that doesn't
// exist, or dates in the wrong order. The board draws it with a substitute,
// tells the user and keeps a note; the planning is never changed.

#include <QDate>
#include <QString>

namespace ksv {

class Texts;

struct DrawingFault {
  QString resource;
  QString from;   // dates as the user reads them
  QString to;
  QString customer;
  int replacedText = 0;  // which replacement sentence
  QString replacement;
};

// The message: the booking on one line, what replaced what, and the pointer
// to the notes.
QString drawingFaultText(const DrawingFault& fault, const Texts& texts);

// Appends the text to the notes file between a dashed line headed by the date
// and a closing dashed line. Returns false when the file can't be written.
bool appendToNotes(const QString& notesFile, const QString& text, QDate date);

}  // namespace ksv
