#pragma once

// One entry of a list of folders that an application searches for resources (fonts, images,
// profiles). The path may be stored relative to the base folder of the list.
#include "core/units/OmaLibExport.h"

#include <QString>

namespace OmaLib {

class OMALIB_EXPORT SearchPath
{
public:
    SearchPath();
    SearchPath(const SearchPath &other);
    SearchPath &operator=(const SearchPath &other);
    ~SearchPath();

    QString path;
    bool relative; // the path is relative to the base path of the list
    bool subfolder; // subfolders are searched too
};

} // namespace OmaLib
