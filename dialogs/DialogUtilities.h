#pragma once

// DialogUtilities are the static services of dialogs: remembering a dialog's place and its
// splitters across runs (QSettings "Tavo" / "TavoApp", group "Dialogs/" + key, where an empty
// key stands for the dialog's class name), fitting a remembered rectangle onto today's
// screens, picking a colour, and offering text codecs in a combo box.
#include "style/TavoLibGuiExport.h"

#include <QColorDialog>

class QComboBox;

namespace TavoLib {

class TAVOLIBGUI_EXPORT DialogUtilities
{
public:
    DialogUtilities() = delete;

    // The hook every dialog passes before it runs: polishes it and gives it back.
    static QDialog &prepareDialog(QDialog &dialog);

    // Stores the dialog's geometry and the sizes of every splitter below it, by object name.
    static void storeGeometry(const QDialog &dialog, const QString &key);
    // Applies a stored record, fitted onto today's screens; true only when something of it
    // (the rectangle or a splitter's sizes) was applied. A stored list longer than a
    // splitter's panes gives their sizes; a shorter one is not used.
    static bool restoreGeometry(QDialog &dialog, const QString &key);
    // `rect` unchanged when any screen's available area holds its top left or top right
    // corner; otherwise a rectangle of `size` at `position` on the primary screen.
    static QRect validateGeometry(const QRect &rect, const QSize &size, const QPoint &position,
                                  bool fromLeft, bool fromTop);

    // A modal colour dialog; an invalid colour when the user cancels.
    static QColor getColor(const QColor &initial, QWidget *parent, const QString &title = QString(),
                           QColorDialog::ColorDialogOptions options = QColorDialog::ColorDialogOptions());

    // Appends "None" and the labels of the codec table; reads and selects by codec name.
    static void initCodecs(QComboBox *comboBox);
    static QString currentCodec(QComboBox *comboBox);
    static void setCurrentCodec(QComboBox *comboBox, const QString &codec);
};

} // namespace TavoLib
