#pragma once

// MakeRelativePath writes into `relative` the form of the absolute `path` relative to the
// absolute folder `base` ("../fonts/a.otf", "." for the folder itself) and returns true.
// It returns false, leaving `relative` alone, when no relative form exists: an empty or
// relative argument, or a different root (another drive letter or another UNC share).
// Drive-letter and UNC paths compare without regard to case, all others with it.
#include "core/units/OmaLibExport.h"

#include <QString>

OMALIB_EXPORT bool MakeRelativePath(const QString &path, const QString &base, QString &relative);
