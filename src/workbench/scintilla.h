// QScintilla's headers are written with Qt's short keywords, which this project leaves undefined.
#pragma once

#define signals Q_SIGNALS
#define slots Q_SLOTS
#include <Qsci/qscicommand.h>
#include <Qsci/qscicommandset.h>
#include <Qsci/qscilexercustom.h>
#include <Qsci/qsciscintilla.h>
#undef signals
#undef slots
