#pragma once

// Describes a file for the library's file lists: a QFileInfo with two further notions, a
// database source (an SQLite file) and a web drive (a path under a dav:// or http(s):// URL
// or a mounted WebDAV share).
#include "core/TavoLibCoreExport.h"

#include <QFileInfo>

namespace TavoLib {

class TAVOLIBCORE_EXPORT OmaFileInfo
{
public:
    explicit OmaFileInfo(const QFileInfo &info);
    ~OmaFileInfo();

    bool isRoot() const;
    bool isDir() const;
    bool isFile() const;
    bool isSymLink() const;
    bool isDatabaseSource() const;
    bool isWebDrive() const;
    QString suffix();
    QString absoluteFilePath();

private:
    QFileInfo mInfo;
};

} // namespace TavoLib
