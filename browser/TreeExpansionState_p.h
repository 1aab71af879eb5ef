#pragma once

// The bytes of a tree browser's saved expansion: a QDataStream of version 12 holding the
// format number 1 (quint8), the count of entries (quint32), then each top-level row's key
// and whether it is expanded, highest key first. Two pure functions, so that the state can
// be written and read (and fuzzed) without a widget.
#include "style/TavoLibGuiExport.h"

#include <QByteArray>
#include <QMap>
#include <QString>

namespace TavoLib::TreeExpansionState {

TAVOLIBGUI_EXPORT QByteArray write(const QMap<QString, bool> &states);

// Reads what the bytes hold into states. A state of another format, or bytes that are no
// state at all, give false; a state cut short gives the entries read whole (false when
// there are none). Entries are read one by one, so a count the data does not back
// allocates nothing.
TAVOLIBGUI_EXPORT bool read(const QByteArray &bytes, QMap<QString, bool> *states);

} // namespace TavoLib::TreeExpansionState
