#pragma once

// OmaFileIconProvider gives file views (file dialogs, the search-path list, a host's file
// lists) the library's own icons for what a publishing application opens: layout documents,
// images, fonts, folders, and a plain page for anything else. The icons are drawn as vector
// artwork, so every size and device pixel ratio is crisp; pixmaps() gives a ready pixmap at
// the library's metrics through Device. Kinds go by the file's suffix, case-insensitively;
// kindOf() is public so hosts sort and filter the same way.
#include "style/TavoLibGuiExport.h"

#include <QFileIconProvider>
#include <QIcon>

class TAVOLIBGUI_EXPORT OmaFileIconProvider : public QFileIconProvider
{
public:
    enum Kind { Generic, Document, Image, Font, Folder };

    OmaFileIconProvider();
    ~OmaFileIconProvider() override;

    QIcon icon(IconType type) const override;
    QIcon icon(const QFileInfo &info) const override;
    QString type(const QFileInfo &info) const override;

    // The kind of a file (Folder for a directory), by its suffix.
    static Kind kindOf(const QFileInfo &info);
    static Kind kindOfSuffix(const QString &suffix);
    // The icon of a kind; the same icon object each time.
    static QIcon iconOf(Kind kind);
    // A pixmap of a kind `size` design pixels square, scaled for the screen (Device).
    static QPixmap pixmapOf(Kind kind, int size = 16);
};
