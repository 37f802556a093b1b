#pragma once
// An open planning as the worklist and the history meet it: rooms 101 and
// 102, the session's black list, the options of a fresh ini file, French short
// dates, and the context both windows take. Today is Monday 10 March 2025.

#include <QDate>

#include "bookings/alarm.h"
#include "config/charger_param.h"
#include "config/ini_defaults.h"
#include "config/ini_file.h"
#include "config/loaded_options.h"
#include "core/regional.h"
#include "core/texts.h"
#include "storage/query_command.h"
#include "support/scripted_messages.h"
#include "support/test_planning.h"

namespace ksv::test {

class WorklistSession {
 public:
  WorklistSession() : ini(planning.paths().iniFile()) {
    writeDefaultIni(ini, planning.clock().today());
    options = Charger_Param(ini, planning.clock());
    planning.addResource("101", 0, 1);
    planning.addResource("102", 0, 2);
    blackList = planning.catalogue().command("BlackList").openRecordset();
  }

  QDate day(int offset) const { return planning.clock().today().addDays(offset); }
  // The options and black list read again after the test changed them.
  void reload() {
    options = Charger_Param(ini, planning.clock());
    blackList.requery();
  }
  WorklistContext context() { return {planning.db(), blackList, planning.clock(), messages, texts, options, ini, regional}; }
  // The head row of an invoice; a Null `from` leaves it unposted.
  void addInvoiceHead(qint32 invoiceNb, const QVariant& from) {
    planning.addRow("Invoice", {{"InvoiceNb", invoiceNb}, {"Typ", "0"}, {"Lib", "x"}, {"From", from}});
  }

  TestPlanning planning;
  IniFile ini;
  Recordset blackList;
  ScriptedMessages messages;
  Texts texts;
  Regional regional = Regional::french();
  LoadedOptions options;
};

}  // namespace ksv::test
