#pragma once
// The booking being worked on, as the dialogs and the board hand it to the
// record operations: filled by the caller, never passed as arguments.

#include <QDate>
#include <QString>
#include <QVariant>
#include <QtGlobal>

namespace ksv {

struct BookingBuffer {
  qint16 I_L = 0;  // position of the booking in RS, 0 = first row
  QDate DD_L, DF_L;
  QString Nom_L, Email_L, Rem_L;
  qint16 HowMany_L = 1;
  QString InvNb_L;  // "" stands for Null
  QString Split_L = QStringLiteral("0");
  QString Res_L;
  bool Bloc_L = false;
  qint16 Color_L = 0;
  QString GroupId_L = QStringLiteral("C");
  qint16 GroupNb_L = 0;
  // The booking as it was read, kept while a dragged copy changes the rest.
  QString Res_S;
  QDate DD_S, DF_S;
};

// A group header occupies no resource; the store takes no empty name, so a
// header row carries this blank instead.
inline const QString kHeaderResource = QStringLiteral(" ");

// A stored date as a day: a date that carries a time still names its day.
QDate dayOf(const QVariant& value);

}  // namespace ksv
