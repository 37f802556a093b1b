#pragma once
// Asking for an access code before a guarded step, and the repair of damaged
// options at start.

#include <functional>

#include <QDate>
#include <QString>

#include "access_code.h"

namespace ksv {

class IniFile;
class Messages;
class Texts;

// Shows `PassWord` with the expected code in clear; returns its `Result`.
using ShowPassWord = std::function<bool(const QString& expected)>;

// True when the step may go on: no code is set, or the right one was typed.
// Anything but the marker is asked for, a damaged (empty) value included.
bool askAccessCode(const IniFile& ini, AccessCode which, const ShowPassWord& showPassWord);

// Rewrites the file with the first-run options. The language and the file's
// version are kept, so that the start goes on as a later run.
bool resetDamagedOptions(IniFile& ini, QDate today);

// Step of the start: the decoded `AccesPlanning`. While it reads empty the
// options are damaged: the user is told and the file is reset. Returns "" only
// when the file cannot be repaired (the start then ends).
QString accesPlanningAtStart(IniFile& ini, QDate today, Messages& messages, const Texts& texts);

}  // namespace ksv
